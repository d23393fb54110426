#include "window/driver/MessageFence.h"

#include <atomic>

#include "window/driver/Keyboard.h"
#include "window/driver/Wait.h"

namespace scrivanta {

namespace {

// A hook's procedure is given nothing to tell whose hook it is, hence the two variables of the process.
std::atomic<int> posted{0};  // how many marks the thread has taken
std::atomic<int> keys{0};

UINT Mark() {
  static const UINT mark = RegisterWindowMessageW(L"ScrivantaTestFence");
  return mark;
}

LRESULT CALLBACK WatchMessages(int code, WPARAM wParam, LPARAM lParam) {
  const auto& message = *reinterpret_cast<const MSG*>(lParam);
  if (code == HC_ACTION && wParam == PM_REMOVE) {
    if (message.message == Mark()) {
      ++posted;
    } else if (message.message == WM_KEYUP && message.wParam == kUnassignedKey) {
      ++keys;
    }
  }
  return CallNextHookEx(nullptr, code, wParam, lParam);
}

}  // namespace

MessageFence::MessageFence(HWND window)
    : window_(window),
      hook_(SetWindowsHookExW(WH_GETMESSAGE, WatchMessages, nullptr, GetWindowThreadProcessId(window, nullptr))) {}

MessageFence::~MessageFence() {
  UnhookWindowsHookEx(hook_);
}

void MessageFence::WaitForPosted(const std::function<bool()>& ended) {
  const int before = posted;
  PostMessageW(window_, Mark(), 0, 0);
  WaitUntil("the program to take its messages", [&] { return posted > before || ended(); });
}

void MessageFence::WaitForKeys(const std::function<bool()>& ended) {
  const int before = keys;
  PressKey(kUnassignedKey);
  WaitUntil("the program to take the keys pressed", [&] { return keys > before || ended(); });
  WaitForPosted(ended);
}

}  // namespace scrivanta
