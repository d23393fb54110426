// What the system does for a program whose windows are dark. Older systems do nothing.
#pragma once

#include <windows.h>

namespace scrivanta {

void ShowTitleDark(HWND window, bool isDark);

enum class DarkTheme {
  kBoxes,       // of edit and combo boxes
  kScrollBars,  // and of what else is seen around a list
};
void UseDarkTheme(HWND control, DarkTheme theme, bool isDark);

// What the user has chosen for all programs.
bool IsSystemDark();
bool IsHighContrast();

}  // namespace scrivanta
