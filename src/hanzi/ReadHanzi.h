// How a text is read: character by character, with the phrases that it holds.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <vector>

#include "hanzi/Hanzi.h"
#include "hanzi/PhraseReadings.h"

namespace scrivanta {

enum class ReadAs {
  kText,
  kName,  // the first Chinese characters are a surname, where they can be one
};

// The reading of every unit of the text; that of a pair stands at its first. Nothing is doubtful that a phrase or a
// surname decides. Where phrases overlap, the one that begins first counts; of those that begin together, the longest.
void ReadHanzi(std::u16string_view text, ReadAs readAs, std::vector<Reading>& readings);

// Where the first Chinese character stands that has a reading; behind the text when none has.
std::size_t FirstHanzi(std::u16string_view text);

// What a phrase or a surname decides, in order: visit(at, syllables) with the place of its first character.
void ForEachPhrase(std::u16string_view text, ReadAs readAs, const auto& visit) {
  std::size_t at = 0;
  if (readAs == ReadAs::kName) {
    at = FirstHanzi(text);
    const PhraseReadings::Syllables surname = PhraseReadings::OfSurnames().FindAtBeginning(text.substr(at));
    visit(at, surname);
    at += surname.size();
  }
  const PhraseReadings& phrases = PhraseReadings::OfTexts();
  while (at + 1 < text.size()) {
    if (!phrases.MayBegin(text[at], text[at + 1])) {
      ++at;
      continue;
    }
    const PhraseReadings::Syllables phrase = phrases.FindAtBeginning(text.substr(at));
    if (!phrase.empty()) {
      visit(at, phrase);
    }
    at += std::max<std::size_t>(phrase.size(), 1);
  }
}

}  // namespace scrivanta
