// Where windows may stand.
#pragma once

#include <windows.h>

#include <vector>

namespace scrivanta {

// The part of every screen that is free for windows, in pixels of the whole desktop; the first is the main screen's.
std::vector<RECT> WorkAreas();

// The work area of the screen that the rectangle is nearest to.
RECT WorkAreaOf(const RECT& bounds);

// The rectangle moved (not resized) so that it lies on the screen it is nearest to, its upper left corner at least.
RECT KeepOnScreen(const RECT& bounds);

}  // namespace scrivanta
