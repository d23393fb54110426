// How wide a text is, in the unit that the user counts in.
#pragma once

#include <cstddef>
#include <string_view>

#include "text/Encoding.h"

namespace scrivanta {

enum class WidthUnit {
  kGbkBytes,    // bytes that the character takes in GBK, whatever the encoding of the text: what fixed-width records
                // count
  kCells,       // cells of the screen (Unicode East Asian Width, ambiguous ones as two; marks that combine take none)
  kCharacters,  // code points
};

// The front part of a text.
struct FittingPart {
  std::size_t bytes = 0;
  std::size_t width = 0;
};

class TextWidth {
 public:
  TextWidth(Encoding encoding, WidthUnit unit) : encoding_(encoding), unit_(unit) {}

  std::size_t Of(std::string_view text) const;
  // The longest front part of whole characters that is not wider than `width`; a character of no width belongs to the
  // one before it.
  FittingPart Fit(std::string_view text, std::size_t width) const;

 private:
  std::size_t OfCharacter(std::string_view character) const;

  Encoding encoding_;
  WidthUnit unit_;
};

}  // namespace scrivanta
