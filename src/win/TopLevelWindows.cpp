#include "win/TopLevelWindows.h"

#include <windows.h>

#include "win/HeldFailure.h"
#include "win/WindowText.h"

namespace scrivanta {

namespace {

struct Titles {
  std::vector<std::u16string> list;
  HeldFailure failure;
};

BOOL CALLBACK AddTitle(HWND window, LPARAM parameter) {
  auto& titles = *reinterpret_cast<Titles*>(parameter);
  return titles.failure.Hold([&] { titles.list.push_back(WindowText(window)); }) ? TRUE : FALSE;
}

}  // namespace

std::vector<std::u16string> TopLevelWindowTitles() {
  Titles titles;
  EnumWindows(&AddTitle, reinterpret_cast<LPARAM>(&titles));
  titles.failure.Rethrow();
  return std::move(titles.list);
}

}  // namespace scrivanta
