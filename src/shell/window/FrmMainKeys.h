// The keys that the edit box adds to the control's own, and the input method in it.
#pragma once

#include <windows.h>

#include <functional>
#include <optional>

#include "shell/window/FrmMainEditor.h"
#include "shell/workbench/Workbench.h"
#include "win/WindowHost.h"

namespace scrivanta {

class FrmMainKeys {
 public:
  // `runGuarded` shows whatever is thrown as a message; `takeEnter` does what Enter means and tells whether it means
  // anything but a line break.
  FrmMainKeys(WindowHost& host, FrmMainEditor& editor, const Clock& clock,
              std::function<void(const std::function<void()>&)> runGuarded, std::function<bool()> takeEnter)
      : host_(host),
        editor_(editor),
        clock_(clock),
        runGuarded_(std::move(runGuarded)),
        takeEnter_(std::move(takeEnter)) {}

  // A message of the edit box; nothing when it is the control's.
  std::optional<LRESULT> HandleMessage(UINT message, WPARAM wParam);

  // While an input method composes text, keys are its own.
  bool isComposing() const noexcept { return isComposing_; }
  // Before a command is run from the menu: what has been typed so far goes into the text.
  void FinishComposition() const;

  // The timers of the main window that type what Ctrl+; and Ctrl+Shift+; stand for, once the keys are up again.
  void TypeMoment(UINT_PTR timer);

 private:
  bool HandleKey(WPARAM key);
  bool HandleControlKey(WPARAM key, bool shift);
  void SelectForErasing(WPARAM key);
  bool BreakLine();
  void SetComposing(bool composing);

  WindowHost& host_;
  FrmMainEditor& editor_;
  const Clock& clock_;
  std::function<void(const std::function<void()>&)> runGuarded_;
  std::function<bool()> takeEnter_;
  bool isComposing_ = false;
};

}  // namespace scrivanta
