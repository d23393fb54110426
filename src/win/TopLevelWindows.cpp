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

std::vector<HWND> TopLevelWindows() {
  Windows windows;
  EnumWindows(&AddWindow, reinterpret_cast<LPARAM>(&windows));
  windows.failure.Rethrow();
  return std::move(windows.list);
}

}  // namespace

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

std::optional<POINT> TopLevelClientCorner(std::u16string_view title) {
  HWND found = nullptr;
  for (const HWND window : TopLevelWindows()) {
    const std::u16string other = IsWindowVisible(window) != FALSE ? WindowText(window) : std::u16string();
    if (other == title) {
      found = window;
      break;
    }
    if (found == nullptr && other.find(title) != std::u16string::npos) {
      found = window;
    }
  }
  POINT corner{};
  return found != nullptr && ClientToScreen(found, &corner) != FALSE ? std::optional(corner) : std::nullopt;
}

}  // namespace scrivanta
