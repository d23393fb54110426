// The phrases in which a character is not read in its usual way, and the surnames.
#pragma once

#include <bitset>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "hanzi/Hanzi.h"
#include "hanzi/HanziTable.h"

namespace scrivanta {

class PhraseReadings {
 public:
  // One syllable a character.
  using Syllables = std::span<const Syllable>;

  // Of whole texts: what is said wherever they occur; of people: what only their surnames are.
  static const PhraseReadings& OfTexts() noexcept;
  static const PhraseReadings& OfSurnames() noexcept;
  // Those of texts, for a text that is not decoded: what is a unit here holds both bytes of a character, the first
  // above.
  static const PhraseReadings& OfTextsInGbk();

  // Whether a phrase may begin with the two. That none does is told at once for nearly all that begin none.
  bool MayBegin(char16_t first, char16_t second) const noexcept { return beginnings_[PlaceOf(first, second)]; }
  // The longest phrase with which the text begins; empty when there is none.
  Syllables FindAtBeginning(std::u16string_view text) const noexcept;
  // In characters, of the longest phrase.
  std::size_t mostCharacters() const noexcept { return mostCharacters_; }

 private:
  struct Phrase {
    std::u16string characters;
    std::size_t firstSyllable = 0;
  };

  static constexpr std::size_t kFirstCharacters = 0x10000;  // phrases lie in the basic plane
  // So many that one in 160 is set, and few enough for the processor to keep at hand.
  static constexpr std::size_t kPlaces = 0x100000;

  PhraseReadings(std::span<const PhraseRow> rows, std::u16string (*unitsOf)(std::u16string_view));

  static constexpr std::size_t PlaceOf(char16_t first, char16_t second) noexcept {
    return (first * std::size_t{40503} + second) % kPlaces;
  }

  std::vector<Phrase> phrases_;  // sorted
  std::u16string seconds_;       // the second character of each, 0 where there is none
  // By their first character, in phrases_; one more behind the last.
  std::vector<std::uint16_t> begins_ = std::vector<std::uint16_t>(kFirstCharacters + 1);
  std::vector<Syllable> syllables_;
  std::size_t mostCharacters_ = 0;
  std::bitset<kPlaces> beginnings_;  // of phrases of two characters or more
};

}  // namespace scrivanta
