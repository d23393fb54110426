#include "text/DarkColours.h"

#include <array>
#include <cmath>

namespace scrivanta {

namespace {

// What white and black become: pure black and white would dazzle.
constexpr float kDarkest = 30;
constexpr float kLightest = 230;
constexpr float kMost = 255;

// As bright as the eye sees it, from 0 to kMost; that of a grey is the grey.
float Brightness(const Colour& colour) {
  constexpr float kOfRed = 0.2126F;
  constexpr float kOfGreen = 0.7152F;
  constexpr float kOfBlue = 0.0722F;
  const auto square = [](int part) { return static_cast<float>(part * part); };
  return std::sqrt(kOfRed * square(colour.red) + kOfGreen * square(colour.green) + kOfBlue * square(colour.blue));
}

constexpr std::uint32_t kByte = 0xFF;
constexpr std::uint32_t kColour = 0xFFFFFF;

std::uint32_t DarkPixel(std::uint32_t pixel) {
  constexpr unsigned kRed = 16;
  constexpr unsigned kGreen = 8;
  const auto part = [pixel](unsigned shift) { return static_cast<int>((pixel >> shift) & kByte); };
  const Colour dark = DarkColour({part(kRed), part(kGreen), part(0)});
  return (static_cast<std::uint32_t>(dark.red) << kRed) | (static_cast<std::uint32_t>(dark.green) << kGreen) |
         static_cast<std::uint32_t>(dark.blue);
}

// What of each byte makes a grey.
constexpr std::uint32_t kGrey = 0x010101;

std::array<std::uint32_t, kByte + 1> DarkGreys() {
  std::array<std::uint32_t, kByte + 1> greys{};
  for (std::uint32_t grey = 0; grey <= kByte; ++grey) {
    greys[grey] = DarkPixel(grey * kGrey);
  }
  return greys;
}

}  // namespace

Colour DarkColour(const Colour& light) {
  const float before = Brightness(light);
  const float after = kLightest - before * (kLightest - kDarkest) / kMost;
  const auto each = [&light](auto change) {
    const auto changed = [&change](int part) {
      return static_cast<int>(std::lround(change(static_cast<float>(part))));
    };
    return Colour{changed(light.red), changed(light.green), changed(light.blue)};
  };
  if (after < before) {
    return each([share = after / before](float part) { return part * share; });
  }
  return each([share = (after - before) / (kMost - before)](float part) { return part + (kMost - part) * share; });
}

// Most pixels are grey, and of the others most are like the one before them.
void DarkenPixels(std::span<std::uint32_t> pixels) {
  static const std::array<std::uint32_t, kByte + 1> kGreys = DarkGreys();
  std::uint32_t before = 0;
  std::uint32_t after = kGreys[0];
  for (std::uint32_t& pixel : pixels) {
    const std::uint32_t colour = pixel & kColour;
    const std::uint32_t grey = pixel & kByte;
    if (colour == grey * kGrey) {
      pixel = kGreys[grey];
    } else {
      if (colour != before) {
        before = colour;
        after = DarkPixel(before);
      }
      pixel = after;
    }
  }
}

}  // namespace scrivanta
