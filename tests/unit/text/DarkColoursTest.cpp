#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include <gtest/gtest.h>

#include "text/DarkColours.h"

namespace scrivanta {
namespace {

// As the guidelines for legible text measure it: from 1 to 21, and 4.5 can be read.
double Contrast(const Colour& a, const Colour& b) {
  const auto luminance = [](const Colour& colour) {
    const auto linear = [](int part) {
      const double share = part / 255.0;
      return share <= 0.03928 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.red) + 0.7152 * linear(colour.green) + 0.0722 * linear(colour.blue) + 0.05;
  };
  const double ratio = luminance(a) / luminance(b);
  return ratio < 1 ? 1 / ratio : ratio;
}

constexpr Colour kWhite{255, 255, 255};
constexpr Colour kBlack{0, 0, 0};

TEST(DarkColours, SwapLightAndDark) {
  const Colour ground = DarkColour(kWhite);
  const Colour text = DarkColour(kBlack);
  EXPECT_LT(ground.green, 50);
  EXPECT_GT(text.green, 200);
  EXPECT_GT(DarkColour({240, 240, 240}).green, ground.green) << "what stands out of white still does";
  EXPECT_EQ(ground.red, ground.blue) << "grey stays grey";
}

TEST(DarkColours, AreLegibleAndKeepTheirHue) {
  const Colour ground = DarkColour(kWhite);
  for (const Colour& text : {Colour{0, 0, 255}, {192, 0, 0}, {0, 128, 0}, {128, 0, 128}, {96, 96, 96}, {255, 0, 0}}) {
    const Colour dark = DarkColour(text);
    EXPECT_GT(Contrast(dark, ground), std::min(Contrast(text, kWhite), 4.5))
        << text.red << ' ' << text.green << ' ' << text.blue;
    EXPECT_EQ(dark.red > dark.green, text.red > text.green);
    EXPECT_EQ(dark.blue > dark.green, text.blue > text.green);
  }
  // On the grounds of marks and of the selection.
  for (const Colour& mark : {Colour{255, 255, 0}, {0, 255, 0}, {0, 255, 255}, {255, 160, 64}}) {
    EXPECT_GT(Contrast(DarkColour(kBlack), DarkColour(mark)), 4.5) << mark.red << ' ' << mark.green << ' ' << mark.blue;
  }
  EXPECT_GT(Contrast(DarkColour(kWhite), DarkColour({0, 120, 215})), 4.5);
}

TEST(DarkColours, ArePutIntoPicturesPixelByPixel) {
  std::vector<std::uint32_t> pixels{0xFFFFFF, 0xFFFFFF, 0x0000FF, 0xFF0000, 0xFFFFFF, 0x5A7F7F7F, 0xFF123456, 0};
  const std::vector<std::uint32_t> light = pixels;
  DarkenPixels(pixels);
  for (std::size_t i = 0; i < light.size(); ++i) {
    const auto part = [](std::uint32_t pixel, unsigned shift) { return static_cast<int>((pixel >> shift) & 0xFFU); };
    const auto colour = [&](std::uint32_t pixel) { return Colour{part(pixel, 16), part(pixel, 8), part(pixel, 0)}; };
    EXPECT_EQ(colour(pixels[i]), DarkColour(colour(light[i]))) << i;
  }
}

}  // namespace
}  // namespace scrivanta
