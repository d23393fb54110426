// The windows of all programs on the desktop.
#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace scrivanta {

// From the front to the back.
std::vector<HWND> TopLevelWindows();
// Each followed by the controls in it.
std::vector<HWND> ControlsIn(HWND window);

std::vector<std::u16string> TopLevelWindowTitles();

// The titles of those that can be seen and have one, each once.
std::vector<std::u16string> VisibleWindowTitles();

enum class WindowsOf { kAllPrograms, kOtherPrograms };

// The visible one with that title, or the first that has it in its title when there is none. Null when that is none
// either.
HWND FindTopLevelWindow(std::u16string_view title, WindowsOf windowsOf);

// Where the inside of a window begins, in pixels of the whole desktop. Nothing for none, and for one that is minimised.
std::optional<POINT> ClientCornerOf(HWND window);

// The window that its user has used last, apart from those of this program.
void BringNextProgramToFront();

}  // namespace scrivanta
