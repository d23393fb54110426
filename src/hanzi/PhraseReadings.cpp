#include "hanzi/PhraseReadings.h"

#include <algorithm>
#include <map>
#include <numeric>

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
    if (row.phrase.size() > 1) {
      beginnings_[PlaceOf(row.phrase[0], row.phrase[1])] = true;
    }
    std::u16string_view rest = row.syllables;
    while (!rest.empty()) {
      const std::size_t end = std::min(rest.find(u' '), rest.size());
      syllables_.push_back(numbers.at(rest.substr(0, end)));
      rest.remove_prefix(std::min(end + 1, rest.size()));
    }
  }
  std::ranges::sort(phrases_, {}, &Phrase::characters);
  for (const Phrase& phrase : phrases_) {
    ++begins_[phrase.characters.front() + 1U];
  }
  std::partial_sum(begins_.begin(), begins_.end(), begins_.begin());
}

// Narrows the phrases down character by character; of those that begin alike the shortest stands first.
PhraseReadings::Syllables PhraseReadings::FindAtBeginning(std::u16string_view text) const noexcept {
  if (text.empty()) {
    return {};
  }
  const Phrase* longest = nullptr;
  std::span<const Phrase> candidates(phrases_.begin() + begins_[text[0]], phrases_.begin() + begins_[text[0] + 1U]);
  for (std::size_t length = 1; !candidates.empty(); ++length) {
    if (candidates.front().characters.size() == length) {
      longest = &candidates.front();
      candidates = candidates.subspan(1);
    }
    if (length == text.size()) {
      break;
    }
    const auto unit = [length](const Phrase& phrase) { return phrase.characters[length]; };
    const auto alike = std::ranges::equal_range(candidates, text[length], {}, unit);
    candidates = {alike.begin(), alike.end()};
  }
  if (longest == nullptr) {
    return {};
  }
  return Syllables(syllables_).subspan(longest->firstSyllable, longest->characters.size());
}

}  // namespace scrivanta
