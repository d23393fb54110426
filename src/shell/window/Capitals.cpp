#include "shell/window/Capitals.h"

#include <algorithm>
#include <array>

namespace scrivanta {

namespace {

enum class Pattern {
  kAll,        // every character of the range is a small letter
  kAlternate,  // capital and small letter stand by turns, a capital first
};

struct SmallLetters {
  char16_t first;
  char16_t last;
  int toCapital;  // to be added
  Pattern pattern = Pattern::kAll;
};

// In order of the code.
constexpr auto kSmallLetters = std::to_array<SmallLetters>({
    {u'a', u'z', -0x20},
    {0x00E0, 0x00F6, -0x20},
    {0x00F8, 0x00FE, -0x20},
    {0x00FF, 0x00FF, 0x79},
    {0x0100, 0x012F, -1, Pattern::kAlternate},
    {0x0132, 0x0137, -1, Pattern::kAlternate},
    {0x0139, 0x0148, -1, Pattern::kAlternate},
    {0x014A, 0x0177, -1, Pattern::kAlternate},
    {0x0179, 0x017E, -1, Pattern::kAlternate},
    {0x01CD, 0x01DC, -1, Pattern::kAlternate},
    {0x03AC, 0x03AC, -0x26},
    {0x03AD, 0x03AF, -0x25},
    {0x03B1, 0x03C1, -0x20},
    {0x03C2, 0x03C2, -0x1F},
    {0x03C3, 0x03CB, -0x20},
    {0x0430, 0x044F, -0x20},
    {0x0450, 0x045F, -0x50},
    {0x2170, 0x217F, -0x10},
    {0xFF41, 0xFF5A, -0x20},
});

char16_t ToCapital(char16_t character) {
  const auto* const range = std::ranges::lower_bound(kSmallLetters, character, {}, &SmallLetters::last);
  if (range == kSmallLetters.end() || character < range->first) {
    return character;
  }
  const bool isSmall = range->pattern == Pattern::kAll || (character - range->first) % 2 == 1;
  return isSmall ? static_cast<char16_t>(character + range->toCapital) : character;
}

}  // namespace

std::u16string ToCapitals(std::u16string_view text) {
  std::u16string capitals(text.size(), u'\0');
  std::ranges::transform(text, capitals.begin(), &ToCapital);
  return capitals;
}

}  // namespace scrivanta
