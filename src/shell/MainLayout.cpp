#include "shell/MainLayout.h"

#include <cmath>

namespace scrivanta {

namespace {

constexpr int kTwipsPerInch = 1440;

int Scaled(int value, int numerator, int denominator) {
  return static_cast<int>(std::lround(static_cast<double>(value) * numerator / denominator));
}

}  // namespace

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

int TwipsToPixels(int twips, int dotsPerInch) {
  return Scaled(twips, dotsPerInch, kTwipsPerInch);
}

int PixelsToTwips(int pixels, int dotsPerInch) {
  return Scaled(pixels, kTwipsPerInch, dotsPerInch);
}

}  // namespace scrivanta
