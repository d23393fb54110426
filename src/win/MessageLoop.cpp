#include "win/MessageLoop.h"

#include <algorithm>

namespace scrivanta {

int MessageLoop::Run() {
  MSG message{};
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    Handle(message);
  }
  return static_cast<int>(message.wParam);
}

void MessageLoop::Pump(const std::function<bool(const MSG&)>& filter) {
  MSG message{};
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
    if (message.message == WM_QUIT) {
      PostQuitMessage(static_cast<int>(message.wParam));
      return;
    }
    if (!filter(message)) {
      Handle(message);
    }
  }
}

void MessageLoop::SetAccelerators(HWND window, OwnedAccelerators accelerators) {
  acceleratorWindow_ = window;
  accelerators_ = std::move(accelerators);
}

void MessageLoop::AddDialog(HWND dialog) {
  dialogs_.push_back(dialog);
}

void MessageLoop::RemoveDialog(HWND dialog) {
  std::erase(dialogs_, dialog);
}

void MessageLoop::Handle(MSG& message) {
  if (IsDialogKey(message)) {
    return;
  }
  const bool forMainWindow = message.hwnd == acceleratorWindow_ || IsChild(acceleratorWindow_, message.hwnd) != FALSE;
  if (acceleratorsEnabled_ && forMainWindow &&
      TranslateAcceleratorW(acceleratorWindow_, accelerators_.get(), &message) != 0) {
    return;
  }
  TranslateMessage(&message);
  DispatchMessageW(&message);
}

bool MessageLoop::IsDialogKey(MSG& message) const {
  // A dialog may close, and leave the list, while it handles the message.
  const std::vector<HWND> dialogs = dialogs_;
  return std::any_of(dialogs.begin(), dialogs.end(),
                     [&message](HWND dialog) { return IsDialogMessageW(dialog, &message) != FALSE; });
}

}  // namespace scrivanta
