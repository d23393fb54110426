// The phrases in which a character is not read in its usual way, and the surnames.
#pragma once

#include <cstddef>
#include <span>
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

  // The longest phrase with which the text begins; empty when there is none.
  Syllables FindAtBeginning(std::u16string_view text) const noexcept;

 private:
  struct Phrase {
    std::u16string_view characters;
    std::size_t firstSyllable = 0;
  };

  explicit PhraseReadings(std::span<const PhraseRow> rows);

  std::vector<Phrase> phrases_;  // sorted
  std::vector<Syllable> syllables_;
};

}  // namespace scrivanta
