// The message loop of the program's one thread of windows.
#pragma once

#include <windows.h>

#include <functional>
#include <vector>

#include "win/Handles.h"

namespace scrivanta {

class MessageLoop {
 public:
  MessageLoop() = default;
  MessageLoop(const MessageLoop&) = delete;
  MessageLoop& operator=(const MessageLoop&) = delete;

  // Handles messages until the program is told to quit; returns the exit code.
  int Run();
  // Handles what is waiting and returns at once; for work that lasts. A message that the filter takes for itself is not
  // handled further. A wish to quit is kept for Run.
  void Pump(const std::function<bool(const MSG&)>& filter);

  // Key strokes that go to `window` as commands while it, or a control in it, has the focus.
  void SetAccelerators(HWND window, OwnedAccelerators accelerators);
  // While false, keys are no commands: while a command runs.
  void EnableAccelerators(bool enable) noexcept { acceleratorsEnabled_ = enable; }

  // Open dialogs: the keys of dialogs (Tab, Enter, Esc, access keys) work in them.
  void AddDialog(HWND dialog);
  void RemoveDialog(HWND dialog);
  const std::vector<HWND>& dialogs() const noexcept { return dialogs_; }

 private:
  void Handle(MSG& message);
  bool IsDialogKey(MSG& message) const;

  HWND acceleratorWindow_ = nullptr;
  OwnedAccelerators accelerators_;
  bool acceleratorsEnabled_ = true;
  std::vector<HWND> dialogs_;
};

}  // namespace scrivanta
