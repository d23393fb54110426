#include <gtest/gtest.h>

#include "shell/workbench/ScreenRect.h"

namespace scrivanta {
namespace {

TEST(MovedOff, GoesTheShortestWayThatHasRoom) {
  constexpr ScreenRect kArea{0, 0, 1000, 800};
  constexpr ScreenRect kWindow{300, 300, 700, 500};
  struct Case {
    ScreenRect place;
    int left;
    int top;
  };
  constexpr Case kCases[] = {
      {{100, 310, 200, 330}, 300, 300},  // not covered
      {{700, 300, 720, 320}, 300, 300},  // beside it
      {{400, 310, 450, 330}, 300, 330},  // below
      {{400, 480, 450, 500}, 300, 280},  // above
      {{310, 390, 330, 410}, 330, 300},  // to the right
      {{680, 390, 690, 410}, 280, 300},  // to the left
      {{0, 200, 1000, 420}, 300, 420},   // only below is room
      {{0, 0, 1000, 800}, 300, 300},     // nowhere
  };
  for (const Case& one : kCases) {
    const ScreenRect moved = MovedOff(kWindow, one.place, kArea);
    EXPECT_EQ(moved, (ScreenRect{one.left, one.top, one.left + 400, one.top + 200})) << one.place.left;
  }
}

}  // namespace
}  // namespace scrivanta
