// Rectangles on the desktop.
#pragma once

namespace scrivanta {

// In pixels of the whole desktop; right and bottom lie outside.
struct ScreenRect {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;

  friend bool operator==(const ScreenRect&, const ScreenRect&) = default;
};

// The window moved (not resized) by no more than is needed for the place to be seen; where it stands when it does not
// cover the place, or when there is no room for both in the area.
ScreenRect MovedOff(const ScreenRect& window, const ScreenRect& place, const ScreenRect& area);

}  // namespace scrivanta
