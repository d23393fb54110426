// A message box that is open.
#pragma once

#include <windows.h>

#include <functional>

#include "shell/workbench/Prompts.h"

namespace scrivanta {

class MessageBoxDriver {
 public:
  // Waits for a message box of the process and checks it against what is expected: text, title, buttons, the button
  // that Enter presses, topmost or not; the icon too when the process is this one. Throws DriverFailure at the first
  // difference. `settle` is called when the box has been answered.
  MessageBoxDriver(DWORD processId, const Message& expected, std::function<void()> settle);

  HWND window() const noexcept { return window_; }
  // Presses the button, and returns when the box has gone. Throws DriverFailure when there is no such button.
  void Answer(scrivanta::Answer answer);
  // Closes the box by its caption.
  void Close();

 private:
  void WaitUntilGone() const;

  HWND window_;
  std::function<void()> settle_;
};

}  // namespace scrivanta
