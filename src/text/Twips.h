// Lengths on paper and screen.
#pragma once

#include <cmath>

namespace scrivanta {

inline constexpr int kTwipsPerInch = 1440;

// Rounded to the nearer one.
inline int TwipsToPixels(int twips, int dotsPerInch) {
  return static_cast<int>(std::lround(static_cast<double>(twips) * dotsPerInch / kTwipsPerInch));
}
inline int PixelsToTwips(int pixels, int dotsPerInch) {
  return static_cast<int>(std::lround(static_cast<double>(pixels) * kTwipsPerInch / dotsPerInch));
}

}  // namespace scrivanta
