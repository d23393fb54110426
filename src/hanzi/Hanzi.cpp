#include "hanzi/Hanzi.h"

#include "hanzi/HanziTable.h"
#include "text/CodePoints.h"
#include "text/UpperCase.h"

namespace scrivanta {

std::u16string_view SpellingOf(Syllable syllable) noexcept {
  return syllable == kNoSyllable ? std::u16string_view() : Syllables()[syllable - 1U].syllable;
}

std::size_t SyllableCount() noexcept {
  return Syllables().size();
}

char16_t InitialOf(Syllable syllable) noexcept {
  if (syllable == kNoSyllable) {
    return 0;
  }
  constexpr std::u16string_view kMarked = u"āáǎàēéěèōóǒòńňǹḿ";
  constexpr std::u16string_view kPlain = u"AAAAEEEEOOOONNNM";
  const char16_t letter = SpellingOf(syllable).front();
  const std::size_t at = kMarked.find(letter);
  return at == std::u16string_view::npos ? UpperCase(letter) : kPlain[at];
}

const HanziData& HanziData::Get() noexcept {
  static const HanziData data;
  return data;
}

HanziData::HanziData() {
  Syllable syllable = kNoSyllable;
  for (const SyllableRow& row : Syllables()) {
    ++syllable;
    ForEachCodePoint(row.characters, [&](char32_t c) { readings_.At(c) = Reading(syllable); });
  }
  for (const OtherInitialRow& row : OtherInitials()) {
    ForEachCodePoint(row.characters, [&](char32_t c) { readings_.At(c) = Reading(readings_.Of(c).syllable(), true); });
  }
  std::uint16_t place = 0;
  for (const StrokeRow& row : Strokes()) {
    ForEachCodePoint(row.characters, [&](char32_t c) { strokePlaces_.At(c) = ++place; });
  }
}

std::u16string OtherInitialsOf(char32_t character) {
  std::u16string letters;
  for (const OtherInitialRow& row : OtherInitials()) {
    bool listed = false;
    ForEachCodePoint(row.characters, [&](char32_t c) { listed |= c == character; });
    if (listed) {
      letters += UpperCase(row.letter);
    }
  }
  return letters;
}

}  // namespace scrivanta
