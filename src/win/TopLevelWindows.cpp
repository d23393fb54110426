#include "win/TopLevelWindows.h"

#include <windows.h>

#include "text/win/WideText.h"

namespace scrivanta {

namespace {

BOOL CALLBACK AddTitle(HWND window, LPARAM titles) {
  std::wstring title(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
  title.resize(static_cast<std::size_t>(GetWindowTextW(window, title.data(), static_cast<int>(title.size()))));
  reinterpret_cast<std::vector<std::u16string>*>(titles)->push_back(FromWide(title));
  return TRUE;
}

}  // namespace

std::vector<std::u16string> TopLevelWindowTitles() {
  std::vector<std::u16string> titles;
  EnumWindows(&AddTitle, reinterpret_cast<LPARAM>(&titles));
  return titles;
}

}  // namespace scrivanta
