// What FrmRelativeCoordinates does, without its window.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "shell/workbench/ResultFiles.h"
#include "text/Interface.h"
#include "windows/RelativeCoordinates.h"

namespace scrivanta {

// The windows that stand on the desktop.
class WindowPlaces : public Interface {
 public:
  virtual std::vector<std::u16string> Captions() const = 0;
  // The upper left corner of the client area of the window with that caption; of one that holds it, when there is none.
  virtual std::optional<ScreenPoint> ClientCorner(std::u16string_view caption) const = 0;
};

enum class CoordinateBase { kWindow, kFirst, kPrevious, kPoint };

// What the controls hold.
struct CoordinatesForm {
  std::optional<ScriptDialect> dialect = {};  // CboDialect; none: told by the commands
  CoordinateBase base = CoordinateBase::kWindow;
  std::u16string caption = {};  // CboCaption
  std::u16string x = {};        // TxtOriginX
  std::u16string y = {};        // TxtOriginY
};

class CoordinatesView : public Interface {
 public:
  virtual CoordinatesForm Form() const = 0;
  virtual void CloseView() = 0;
};

class CoordinatesDialog {
 public:
  CoordinatesDialog(Workbench& workbench, CapturedInput input, const WindowPlaces& places)
      : workbench_(workbench), input_(std::move(input)), places_(places) {}

  std::vector<std::u16string> Captions() const { return places_.Captions(); }
  // The button CmdConvert: converts what was captured, closes the window, and tells what was left as it stood. Throws
  // ExplainedError for what cannot be used; the window then stays open.
  void Convert(CoordinatesView& view);

 private:
  CoordinateOrigin OriginOf(const CoordinatesForm& form) const;
  void Tell(const CoordinateReport& report);

  Workbench& workbench_;
  CapturedInput input_;
  const WindowPlaces& places_;
};

}  // namespace scrivanta
