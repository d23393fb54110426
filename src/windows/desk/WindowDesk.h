// The windows and processes of the desktop, as they are looked at and told what to do.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "text/ExplainedError.h"
#include "text/Interface.h"
#include "windows/RelativeCoordinates.h"

namespace scrivanta {

using WindowHandle = std::uint64_t;  // 0: none
using ProcessId = std::uint32_t;

struct WindowBounds {
  ScreenPoint corner;
  long long width = 0;
  long long height = 0;

  bool Holds(ScreenPoint point) const;
  bool operator==(const WindowBounds&) const = default;
};

struct DeskWindow {
  WindowHandle handle = 0;
  WindowHandle parent = 0;  // none of a top window
  std::u16string caption = {};
  std::u16string className = {};
  ProcessId process = 0;
  WindowBounds bounds = {};
  bool isVisible = true;  // and so is what it stands in
  bool isEnabled = true;
  bool isMinimised = false;
  bool isMaximised = false;
  bool isOnTop = false;
  bool isHung = false;

  // A handle can be given to another window when its own has gone.
  bool IsSameAs(const DeskWindow& other) const;
};

struct DeskProcess {
  ProcessId id = 0;
  ProcessId parent = 0;
  std::u16string name = {};
  std::u16string path = {};   // empty where the system does not tell
  std::uint64_t memory = 0;   // in bytes
  std::uint64_t started = 0;  // tells it from a later one with its number; 0 where the system does not tell
};

// The window or process is not there any more, or does not let itself be told.
class WindowDeskError : public ExplainedError {
 public:
  explicit WindowDeskError(const std::u16string& chinese) : ExplainedError("no such window or process", chinese) {}
};

class WindowDesk : public Interface {
 public:
  // From the front to the back, each followed by the controls in it.
  virtual std::vector<DeskWindow> Windows() const = 0;
  virtual std::vector<DeskProcess> Processes() const = 0;
  virtual std::optional<DeskWindow> Find(WindowHandle window) const = 0;
  // The top window at a point of the screen that is nearest to the eye.
  virtual WindowHandle TopWindowAt(ScreenPoint point) const = 0;
  virtual ProcessId OwnProcess() const = 0;

  // All of these throw WindowDeskError.
  virtual std::u16string Text(WindowHandle window) const = 0;  // the whole of a control's, line breaks CR LF
  virtual void SetText(WindowHandle window, const std::u16string& text) = 0;
  virtual void BringUp(WindowHandle window) = 0;
  virtual void Show(WindowHandle window, bool visible) = 0;
  virtual void Move(WindowHandle window, const WindowBounds& bounds) = 0;
  virtual void KeepOnTop(WindowHandle window, bool onTop) = 0;
  virtual void Close(WindowHandle window) = 0;
  virtual void EndProcess(const DeskProcess& process) = 0;
};

}  // namespace scrivanta
