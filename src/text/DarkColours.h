// The colours of a dark screen, made of those of a light one: what is light there is dark here and the other way round,
// and red stays red. What could be read can be read still, whatever two colours it was made of.
#pragma once

#include <cstdint>
#include <span>

namespace scrivanta {

struct Colour {
  int red = 0;
  int green = 0;
  int blue = 0;

  friend bool operator==(const Colour&, const Colour&) = default;
};

Colour DarkColour(const Colour& light);

// The same with every pixel of a picture, 0xRRGGBB each; what stands above that goes.
void DarkenPixels(std::span<std::uint32_t> pixels);

}  // namespace scrivanta
