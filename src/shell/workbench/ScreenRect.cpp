#include "shell/workbench/ScreenRect.h"

#include <array>
#include <cstdlib>
#include <limits>

namespace scrivanta {

ScreenRect MovedOff(const ScreenRect& window, const ScreenRect& place, const ScreenRect& area) {
  const bool covers =
      window.left < place.right && place.left < window.right && window.top < place.bottom && place.top < window.bottom;
  if (!covers) {
    return window;
  }
  struct Move {
    int right;
    int down;
  };
  const std::array<Move, 4> moves = {{{0, place.bottom - window.top},
                                      {0, place.top - window.bottom},
                                      {place.right - window.left, 0},
                                      {place.left - window.right, 0}}};
  ScreenRect nearest = window;
  int shortest = std::numeric_limits<int>::max();
  for (const Move& move : moves) {
    const ScreenRect moved{window.left + move.right, window.top + move.down, window.right + move.right,
                           window.bottom + move.down};
    const bool fits =
        moved.left >= area.left && moved.top >= area.top && moved.right <= area.right && moved.bottom <= area.bottom;
    const int way = std::abs(move.right + move.down);
    if (fits && way < shortest) {
      nearest = moved;
      shortest = way;
    }
  }
  return nearest;
}

}  // namespace scrivanta
