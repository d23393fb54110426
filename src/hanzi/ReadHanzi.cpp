#include "hanzi/ReadHanzi.h"

#include <algorithm>
#include <cstddef>

#include "hanzi/PhraseReadings.h"
#include "text/CodePoints.h"

namespace scrivanta {

namespace {

void ReadCharacters(std::u16string_view text, std::vector<Reading>& readings) {
  const HanziData& data = HanziData::Get();
  readings.resize(text.size());
  for (std::size_t at = 0; at < text.size(); ++at) {
    readings[at] = data.ReadingOf(text[at]);
    if (IsHighSurrogate(text[at])) {
      readings[at] = data.ReadingOf(CodePointAt(text, at));
    }
  }
}

void PutDecided(PhraseReadings::Syllables syllables, std::vector<Reading>::iterator readings) {
  for (const Syllable syllable : syllables) {
    *readings++ = Reading(syllable);
  }
}

}  // namespace

void ReadHanzi(std::u16string_view text, ReadAs readAs, std::vector<Reading>& readings) {
  ReadCharacters(text, readings);
  std::size_t at = 0;
  if (readAs == ReadAs::kName) {
    const auto first =
        std::ranges::find_if(readings, [](Reading reading) { return reading.syllable() != kNoSyllable; });
    at = static_cast<std::size_t>(first - readings.begin());
    const PhraseReadings::Syllables surname = PhraseReadings::OfSurnames().FindAtBeginning(text.substr(at));
    PutDecided(surname, first);
    at += surname.size();
  }
  const PhraseReadings& phrases = PhraseReadings::OfTexts();
  while (at + 1 < text.size()) {
    if (!phrases.MayBegin(text[at], text[at + 1])) {
      ++at;
      continue;
    }
    const PhraseReadings::Syllables phrase = phrases.FindAtBeginning(text.substr(at));
    PutDecided(phrase, readings.begin() + static_cast<std::ptrdiff_t>(at));
    at += std::max<std::size_t>(phrase.size(), 1);
  }
}

}  // namespace scrivanta
