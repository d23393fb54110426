#include "tables/TextWidth.h"

#include <algorithm>

#include "tables/CellWidthTable.h"
#include "text/AsciiRun.h"
#include "text/CharacterBytes.h"
#include "text/Surrogates.h"

namespace scrivanta {

namespace {

std::size_t CellsOf(char32_t character) {
  const auto runs = CellWidthRuns();
  const auto run = std::lower_bound(runs.begin(), runs.end(), character,
                                    [](const CellWidthRun& r, char32_t c) { return r.last < c; });
  return run != runs.end() && run->first <= character ? static_cast<std::size_t>(run->width) : 1;
}

}  // namespace

std::size_t TextWidth::OfCharacter(std::string_view character) const {
  if (static_cast<unsigned char>(character.front()) < 0x80 || unit_ == WidthUnit::kCharacters) {
    return 1;
  }
  if (unit_ == WidthUnit::kGbkBytes && encoding_ == Encoding::kGbk) {
    return character.size();
  }
  const std::u16string units = Decode(encoding_, character);
  if (unit_ == WidthUnit::kGbkBytes) {
    return Encode(Encoding::kGbk, units).size();
  }
  return CellsOf(units.size() == 2 ? CodePointOfPair(units[0], units[1]) : units[0]);
}

std::size_t TextWidth::Of(std::string_view text) const {
  const bool isItsOwnUnit = unit_ == WidthUnit::kGbkBytes && encoding_ == Encoding::kGbk;
  if (isItsOwnUnit || CountNonAscii(text) == 0) {
    return text.size();
  }
  return Fit(text, static_cast<std::size_t>(-1)).width;
}

FittingPart TextWidth::Fit(std::string_view text, std::size_t width) const {
  FittingPart part;
  while (part.bytes < text.size()) {
    const std::string_view rest = text.substr(part.bytes);
    const std::string_view character = rest.substr(0, CharacterBytes(encoding_, rest));
    const std::size_t characterWidth = OfCharacter(character);
    if (characterWidth > width - part.width) {
      break;
    }
    part.bytes += character.size();
    part.width += characterWidth;
  }
  return part;
}

}  // namespace scrivanta
