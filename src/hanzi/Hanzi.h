// What is known of single Chinese characters: their usual reading in Mandarin, and their strokes.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace scrivanta {

// A syllable with its tone, as a number that grows in the order of dictionaries.
using Syllable = std::uint16_t;
inline constexpr Syllable kNoSyllable = 0;

// "zhòng"; empty for kNoSyllable.
std::u16string_view SpellingOf(Syllable syllable) noexcept;
// A capital letter; 0 for kNoSyllable.
char16_t InitialOf(Syllable syllable) noexcept;

struct Hanzi {
  Syllable syllable = kNoSyllable;  // of the usual reading
  // Its place, from 1, in the order of all characters by strokes and then by code; 0 while the strokes are unknown.
  std::uint16_t strokePlace = 0;
  bool hasOtherInitials = false;  // some of its readings begin with another letter
  bool beginsPhrase = false;      // some of the phrases that PhraseReadings knows
};

// Characters of the basic plane, and of those beyond it what the general standard table of characters holds; all others
// have nothing.
const Hanzi& HanziOf(char32_t character) noexcept;

// The letters with which the readings of a character begin beside its usual one; capitals, in alphabetical order.
std::u16string OtherInitialsOf(char32_t character);

}  // namespace scrivanta
