#include "hanzi/PhraseReadings.h"

#include <algorithm>
#include <map>

#include "hanzi/SurnameTable.h"

namespace scrivanta {

namespace {

using SyllableNumbers = std::map<std::u16string_view, Syllable>;

SyllableNumbers NumberSyllables() {
  SyllableNumbers numbers;
  Syllable number = kNoSyllable;
  for (const SyllableRow& row : Syllables()) {
    numbers[row.syllable] = ++number;
  }
  return numbers;
}

}  // namespace

const PhraseReadings& PhraseReadings::OfTexts() noexcept {
  static const PhraseReadings readings{Phrases()};
  return readings;
}

const PhraseReadings& PhraseReadings::OfSurnames() noexcept {
  static const PhraseReadings readings{Surnames()};
  return readings;
}

PhraseReadings::PhraseReadings(std::span<const PhraseRow> rows) {
  const SyllableNumbers numbers = NumberSyllables();
  for (const PhraseRow& row : rows) {
    phrases_.push_back({row.phrase, syllables_.size()});
    std::u16string_view rest = row.syllables;
    while (!rest.empty()) {
      const std::size_t end = std::min(rest.find(u' '), rest.size());
      syllables_.push_back(numbers.at(rest.substr(0, end)));
      rest.remove_prefix(std::min(end + 1, rest.size()));
    }
  }
  std::ranges::sort(phrases_, {}, &Phrase::characters);
}

// Narrows the phrases down character by character; of those that begin alike the shortest stands first.
PhraseReadings::Syllables PhraseReadings::FindAtBeginning(std::u16string_view text) const noexcept {
  const Phrase* longest = nullptr;
  std::span<const Phrase> candidates = phrases_;
  for (std::size_t at = 0; at < text.size() && !candidates.empty(); ++at) {
    const auto unit = [at](const Phrase& phrase) { return phrase.characters[at]; };
    const auto alike = std::ranges::equal_range(candidates, text[at], {}, unit);
    candidates = {alike.begin(), alike.end()};
    if (!candidates.empty() && candidates.front().characters.size() == at + 1) {
      longest = &candidates.front();
      candidates = candidates.subspan(1);
    }
  }
  if (longest == nullptr) {
    return {};
  }
  return Syllables(syllables_).subspan(longest->firstSyllable, longest->characters.size());
}

}  // namespace scrivanta
