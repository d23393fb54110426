// How a text is read: character by character, with the phrases that it holds.
#pragma once

#include <cstddef>
#include <string_view>

#include "hanzi/Hanzi.h"
#include "hanzi/PhraseReadings.h"
#include "text/CodePoints.h"

namespace scrivanta {

enum class ReadAs {
  kText,
  kName,  // the first Chinese characters are a surname, where they can be one
};

struct ReadCharacter {
  char32_t character = 0;
  Syllable syllable = kNoSyllable;  // also of what is no Chinese character
  bool isDoubtful = false;          // another initial is possible, and neither phrase nor surname has decided
};

// Calls visit(const ReadCharacter&) for every character in its order. Where phrases overlap, the one that begins first
// counts; of those that begin together, the longest. Phrases lie in the basic plane, one unit a character.
void ForEachReading(std::u16string_view text, ReadAs readAs, const auto& visit) {
  const PhraseReadings& phrases = PhraseReadings::OfTexts();
  bool awaitsSurname = readAs == ReadAs::kName;
  for (std::size_t at = 0; at < text.size();) {
    const char32_t character = CodePointAt(text, at);
    const Hanzi& hanzi = HanziOf(character);
    PhraseReadings::Syllables syllables;
    if (awaitsSurname && hanzi.syllable != kNoSyllable) {
      awaitsSurname = false;
      syllables = PhraseReadings::OfSurnames().FindAtBeginning(text.substr(at));
    }
    if (syllables.empty() && hanzi.beginsPhrase) {
      syllables = phrases.FindAtBeginning(text.substr(at));
    }
    if (syllables.empty()) {
      visit(ReadCharacter{character, hanzi.syllable, hanzi.hasOtherInitials});
      at += UnitsOf(character);
    } else {
      for (const Syllable syllable : syllables) {
        visit(ReadCharacter{text[at++], syllable, false});
      }
    }
  }
}

}  // namespace scrivanta
