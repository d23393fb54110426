// What the system does for a program whose windows are dark. Older systems do nothing.
#pragma once

#include <windows.h>

namespace scrivanta {

void ShowTitleDark(HWND window, bool isDark);

void UseDarkScrollBars(HWND control, bool isDark);

// Returns when the screen has just been shown anew: what is drawn and drawn over before it is shown again nobody sees.
void WaitForFrame();

// What the user has chosen for all programs.
bool IsSystemDark();
bool IsHighContrast();

}  // namespace scrivanta
