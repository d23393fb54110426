#include "shell/window/MainLayout.h"

namespace scrivanta {

std::optional<MainLayout> LayOutMainWindow(int innerWidth, int innerHeight) {
  MainLayout layout;
  // The box reaches beyond the window, so that its left border is hidden.
  layout.editBox = {-20, 50, innerWidth + 23, innerHeight - 365};
  layout.progressBar = {45, innerHeight / 2, innerWidth - 500, 300};
  if (layout.editBox.height < 0 || layout.progressBar.width < 0) {
    return std::nullopt;
  }
  return layout;
}

}  // namespace scrivanta
