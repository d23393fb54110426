// Where the controls of the main window stand, as a function of its inner size.
#pragma once

#include <optional>

namespace scrivanta {

// In twips, 1440 an inch.
struct TwipRect {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;

  friend bool operator==(const TwipRect&, const TwipRect&) = default;
};

struct MainLayout {
  TwipRect editBox;
  TwipRect progressBar;
};

// Nothing when the window is too small for its controls: they stay where they are.
std::optional<MainLayout> LayOutMainWindow(int innerWidth, int innerHeight);

}  // namespace scrivanta
