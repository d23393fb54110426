#include "win/TopLevelWindows.h"

#include <algorithm>

#include "win/HeldFailure.h"
#include "win/WindowText.h"

namespace scrivanta {

namespace {

struct Windows {
  std::vector<HWND> list;
  HeldFailure failure;
};

BOOL CALLBACK AddWindow(HWND window, LPARAM parameter) {
  auto& windows = *reinterpret_cast<Windows*>(parameter);
  return windows.failure.Hold([&] { windows.list.push_back(window); }) ? TRUE : FALSE;
}

bool IsOurs(HWND window) {
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  return process == GetCurrentProcessId();
}

}  // namespace

std::vector<HWND> TopLevelWindows() {
  Windows windows;
  EnumWindows(&AddWindow, reinterpret_cast<LPARAM>(&windows));
  windows.failure.Rethrow();
  return std::move(windows.list);
}

std::vector<HWND> ControlsIn(HWND window) {
  Windows windows;
  EnumChildWindows(window, &AddWindow, reinterpret_cast<LPARAM>(&windows));
  windows.failure.Rethrow();
  return std::move(windows.list);
}

std::vector<std::u16string> TopLevelWindowTitles() {
  std::vector<std::u16string> titles;
  for (const HWND window : TopLevelWindows()) {
    titles.push_back(WindowText(window));
  }
  return titles;
}

std::vector<std::u16string> VisibleWindowTitles() {
  std::vector<std::u16string> titles;
  for (const HWND window : TopLevelWindows()) {
    std::u16string title = IsWindowVisible(window) != FALSE ? WindowText(window) : std::u16string();
    if (!title.empty() && std::find(titles.begin(), titles.end(), title) == titles.end()) {
      titles.push_back(std::move(title));
    }
  }
  return titles;
}

HWND FindTopLevelWindow(std::u16string_view title, WindowsOf windowsOf) {
  HWND found = nullptr;
  for (const HWND window : TopLevelWindows()) {
    if (IsWindowVisible(window) == FALSE || (windowsOf == WindowsOf::kOtherPrograms && IsOurs(window))) {
      continue;
    }
    const std::u16string other = WindowText(window);
    if (other == title) {
      return window;
    }
    if (found == nullptr && other.find(title) != std::u16string::npos) {
      found = window;
    }
  }
  return found;
}

std::optional<POINT> ClientCornerOf(HWND window) {
  POINT corner{};
  return window != nullptr && IsIconic(window) == FALSE && ClientToScreen(window, &corner) != FALSE
             ? std::optional(corner)
             : std::nullopt;
}

void BringNextProgramToFront() {
  for (const HWND window : TopLevelWindows()) {
    if (IsWindowVisible(window) != FALSE && IsWindowEnabled(window) != FALSE && IsIconic(window) == FALSE &&
        !IsOurs(window) && GetWindowTextLengthW(window) > 0) {
      SetForegroundWindow(window);
      return;
    }
  }
}

}  // namespace scrivanta
