#include "hanzi/Hanzi.h"

#include <algorithm>
#include <map>
#include <vector>

#include "hanzi/HanziTable.h"
#include "text/CodePoints.h"
#include "text/UpperCase.h"

namespace scrivanta {

namespace {

constexpr std::size_t kBasicPlane = 0x10000;

// The plain letter of one with a tone mark that begins a syllable.
char16_t CapitalOf(char16_t letter) {
  constexpr std::u16string_view kMarked = u"āáǎàēéěèōóǒòńňǹḿ";
  constexpr std::u16string_view kPlain = u"AAAAEEEEOOOONNNM";
  const std::size_t at = kMarked.find(letter);
  return at == std::u16string_view::npos ? UpperCase(letter) : kPlain[at];
}

class HanziData {
 public:
  HanziData() : basic_(kBasicPlane) {
    AddReadings();
    AddStrokes();
    for (const OtherInitialRow& row : OtherInitials()) {
      ForEachCodePoint(row.characters, [&](char32_t c) { At(c).hasOtherInitials = true; });
    }
    for (const PhraseRow& row : Phrases()) {
      At(row.phrase.front()).beginsPhrase = true;
    }
  }

  const Hanzi& Of(char32_t character) const noexcept {
    if (character < kBasicPlane) {
      return basic_[character];
    }
    const auto found = beyond_.find(character);
    return found == beyond_.end() ? nothing_ : found->second;
  }

  char16_t InitialOf(Syllable syllable) const noexcept { return initials_[syllable]; }

 private:
  Hanzi& At(char32_t character) { return character < kBasicPlane ? basic_[character] : beyond_[character]; }

  void AddReadings() {
    Syllable syllable = kNoSyllable;
    initials_.push_back(0);
    for (const SyllableRow& row : Syllables()) {
      ++syllable;
      initials_.push_back(CapitalOf(row.syllable.front()));
      ForEachCodePoint(row.characters, [&](char32_t c) { At(c).syllable = syllable; });
    }
  }

  void AddStrokes() {
    std::uint16_t place = 0;
    for (const StrokeRow& row : Strokes()) {
      ForEachCodePoint(row.characters, [&](char32_t c) { At(c).strokePlace = ++place; });
    }
  }

  std::vector<Hanzi> basic_;  // by code
  std::map<char32_t, Hanzi> beyond_;
  std::vector<char16_t> initials_;  // by syllable
  Hanzi nothing_;
};

const HanziData& Data() noexcept {
  static const HanziData data;
  return data;
}

}  // namespace

std::u16string_view SpellingOf(Syllable syllable) noexcept {
  return syllable == kNoSyllable ? std::u16string_view() : Syllables()[syllable - 1U].syllable;
}

char16_t InitialOf(Syllable syllable) noexcept {
  return Data().InitialOf(syllable);
}

const Hanzi& HanziOf(char32_t character) noexcept {
  return Data().Of(character);
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
