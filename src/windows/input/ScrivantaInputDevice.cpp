#include "windows/input/ScrivantaInputDevice.h"

#include <array>

#include "text/win/PlatformError.h"
#include "win/TopLevelWindows.h"

namespace scrivanta {

namespace {

constexpr ULONG_PTR kPlayed = 0x53435256;  // marks what is played

void Send(INPUT& input) {
  SendInput(1, &input, sizeof(input));
}

// Of what begins something: the system refuses it while its user is not let in. Throws std::system_error.
void SendOrThrow(INPUT& input) {
  if (SendInput(1, &input, sizeof(input)) == 0) {
    ThrowLastError("SendInput");
  }
}

INPUT KeyInput(WORD key, WORD scan, DWORD flags) {
  INPUT input{};
  input.type = INPUT_KEYBOARD;
  input.ki.wVk = key;
  input.ki.wScan = scan;
  input.ki.dwFlags = flags;
  input.ki.dwExtraInfo = kPlayed;
  return input;
}

INPUT MouseInput(DWORD flags) {
  INPUT input{};
  input.type = INPUT_MOUSE;
  input.mi.dwFlags = flags;
  input.mi.dwExtraInfo = kPlayed;
  return input;
}

// Where a pixel lies between the edges of the whole desktop, as the system counts it.
LONG ShareOfDesktop(long long pixel, int firstMetric, int sizeMetric) {
  constexpr long long kShares = 65'536;
  const long long size = GetSystemMetrics(sizeMetric);
  const long long inside = pixel - GetSystemMetrics(firstMetric);
  return static_cast<LONG>((inside * kShares + size - 1) / size);  // so that the system comes back to this pixel
}

// In front, and knowing of it: until then it gets no keys.
bool HasKeys(HWND window) {
  GUITHREADINFO info{};
  info.cbSize = sizeof(info);
  return GetForegroundWindow() == window &&
         GetGUIThreadInfo(GetWindowThreadProcessId(window, nullptr), &info) != FALSE && info.hwndActive == window &&
         info.hwndFocus != nullptr;
}

}  // namespace

void ScrivantaInputDevice::Key(KeyCode key, bool down) {
  const auto scan = static_cast<WORD>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC));
  INPUT input = KeyInput(key, scan, (IsExtendedKey(key) ? KEYEVENTF_EXTENDEDKEY : 0U) | (down ? 0U : KEYEVENTF_KEYUP));
  down ? SendOrThrow(input) : Send(input);
}

void ScrivantaInputDevice::Character(char16_t c) {
  INPUT press = KeyInput(0, c, KEYEVENTF_UNICODE);
  SendOrThrow(press);
  INPUT release = KeyInput(0, c, KEYEVENTF_UNICODE | KEYEVENTF_KEYUP);
  Send(release);
}

void ScrivantaInputDevice::MoveTo(ScreenPoint point) {
  INPUT input = MouseInput(MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE | MOUSEEVENTF_VIRTUALDESK);
  input.mi.dx = ShareOfDesktop(point.x, SM_XVIRTUALSCREEN, SM_CXVIRTUALSCREEN);
  input.mi.dy = ShareOfDesktop(point.y, SM_YVIRTUALSCREEN, SM_CYVIRTUALSCREEN);
  SendOrThrow(input);
}

// The left one is what the user's first finger presses, whatever side it is on.
void ScrivantaInputDevice::Button(MouseButton button, bool down) {
  if (GetSystemMetrics(SM_SWAPBUTTON) != 0 && button != MouseButton::kMiddle) {
    button = button == MouseButton::kLeft ? MouseButton::kRight : MouseButton::kLeft;
  }
  constexpr std::array<DWORD, 3> kDown = {MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_RIGHTDOWN, MOUSEEVENTF_MIDDLEDOWN};
  constexpr std::array<DWORD, 3> kUp = {MOUSEEVENTF_LEFTUP, MOUSEEVENTF_RIGHTUP, MOUSEEVENTF_MIDDLEUP};
  INPUT input = MouseInput((down ? kDown : kUp).at(static_cast<std::size_t>(button)));
  down ? SendOrThrow(input) : Send(input);
}

void ScrivantaInputDevice::Wheel(bool awayFromUser) {
  INPUT input = MouseInput(MOUSEEVENTF_WHEEL);
  input.mi.mouseData = static_cast<DWORD>(awayFromUser ? WHEEL_DELTA : -WHEEL_DELTA);
  SendOrThrow(input);
}

Activation ScrivantaInputDevice::Activate(const std::u16string& caption) {
  const HWND window = FindTopLevelWindow(caption, WindowsOf::kOtherPrograms);
  if (window == nullptr) {
    return Activation::kNoWindow;
  }
  if (IsIconic(window) != FALSE) {
    ShowWindowAsync(window, SW_RESTORE);
  } else if (HasKeys(window)) {
    return Activation::kInFront;
  }
  // Without a key the system may keep the window of another program in front.
  Key(VK_MENU, false);
  SetForegroundWindow(window);
  return Activation::kAsked;
}

bool ScrivantaInputDevice::HasWindow(const std::u16string& caption) {
  return FindTopLevelWindow(caption, WindowsOf::kOtherPrograms) != nullptr;
}

std::optional<ScreenPoint> ScrivantaInputDevice::ClientCorner(const std::u16string& caption) {
  const auto corner = ClientCornerOf(FindTopLevelWindow(caption, WindowsOf::kOtherPrograms));
  return corner ? std::optional(ScreenPoint{corner->x, corner->y}) : std::nullopt;
}

void ScrivantaInputDevice::Sleep(std::chrono::milliseconds time) {
  ::Sleep(static_cast<DWORD>(time.count()));
}

ScrivantaStopKey::ScrivantaStopKey() {
  wasPressed = false;
  hook_.Reset(SetWindowsHookExW(WH_KEYBOARD_LL, &Hear, GetModuleHandleW(nullptr), 0));
  if (!hook_) {
    ThrowLastError("SetWindowsHookEx");
  }
}

// The system hands the keys over while this thread looks at its messages.
bool ScrivantaStopKey::IsPressed() const {
  MSG message{};
  PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE | PM_QS_SENDMESSAGE);
  return wasPressed;
}

LRESULT CALLBACK ScrivantaStopKey::Hear(int code, WPARAM message, LPARAM lParam) noexcept {
  if (code == HC_ACTION && (message == WM_KEYDOWN || message == WM_SYSKEYDOWN)) {
    const auto& key = *reinterpret_cast<const KBDLLHOOKSTRUCT*>(lParam);
    if (key.vkCode == VK_ESCAPE && key.dwExtraInfo != kPlayed) {
      wasPressed = true;
      return 1;
    }
  }
  return CallNextHookEx(nullptr, code, message, lParam);
}

}  // namespace scrivanta
