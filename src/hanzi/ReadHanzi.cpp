#include "hanzi/ReadHanzi.h"

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

}  // namespace

void ReadHanzi(std::u16string_view text, ReadAs readAs, std::vector<Reading>& readings) {
  ReadCharacters(text, readings);
  ForEachPhrase(text, readAs, [&readings](std::size_t at, PhraseReadings::Syllables syllables) {
    for (const Syllable syllable : syllables) {
      readings[at++] = Reading(syllable);
    }
  });
}

std::size_t FirstHanzi(std::u16string_view text) {
  const HanziData& data = HanziData::Get();
  std::size_t at = 0;
  while (at < text.size() && data.ReadingOf(CodePointAt(text, at)).syllable() == kNoSyllable) {
    ++at;
  }
  return at;
}

}  // namespace scrivanta
