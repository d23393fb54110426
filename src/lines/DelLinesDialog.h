// What FrmDelLineFromXtoY does, without its window.
#pragma once

#include <string>

#include "shell/workbench/ResultFiles.h"
#include "text/Interface.h"

namespace scrivanta {

// The two text boxes, TxtDelLineStart and TxtDelLineEnd, and the window around them.
class DelLinesView : public Interface {
 public:
  virtual std::u16string Start() const = 0;
  virtual std::u16string End() const = 0;
  virtual void SetRange(const std::u16string& start, const std::u16string& end) = 0;
  virtual void CloseView() = 0;
};

class DelLinesDialog {
 public:
  // Works on what has been captured, whatever happens to the file while the window is open.
  DelLinesDialog(Workbench& workbench, CapturedInput input) : workbench_(workbench), input_(std::move(input)) {}

  // The button CmdFrmDelLineFromXtoY: deletes the lines and closes the window. Throws FileError, Interrupted; the
  // window then stays open.
  void Delete(DelLinesView& view);

 private:
  Workbench& workbench_;
  CapturedInput input_;
};

}  // namespace scrivanta
