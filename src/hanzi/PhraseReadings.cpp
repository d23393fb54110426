#include "hanzi/PhraseReadings.h"

#include <algorithm>
#include <map>
#include <numeric>

#include "hanzi/SurnameTable.h"
#include "text/Encoding.h"

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

std::u16string Itself(std::u16string_view phrase) {
  return std::u16string(phrase);
}

std::u16string InGbk(std::u16string_view phrase) {
  const std::string bytes = Encode(Encoding::kGbk, phrase);
  std::u16string units;
  for (std::size_t at = 0; at + 1 < bytes.size(); at += 2) {
    units +=
        static_cast<char16_t>(static_cast<unsigned char>(bytes[at]) << 8U | static_cast<unsigned char>(bytes[at + 1]));
  }
  return units;
}

}  // namespace

const PhraseReadings& PhraseReadings::OfTexts() noexcept {
  static const PhraseReadings readings(Phrases(), Itself);
  return readings;
}

const PhraseReadings& PhraseReadings::OfSurnames() noexcept {
  static const PhraseReadings readings(Surnames(), Itself);
  return readings;
}

const PhraseReadings& PhraseReadings::OfTextsInGbk() {
  static const PhraseReadings readings(Phrases(), InGbk);
  return readings;
}

PhraseReadings::PhraseReadings(std::span<const PhraseRow> rows, std::u16string (*unitsOf)(std::u16string_view)) {
  const SyllableNumbers numbers = NumberSyllables();
  for (const PhraseRow& row : rows) {
    const std::u16string units = unitsOf(row.phrase);
    phrases_.push_back({units, syllables_.size()});
    mostCharacters_ = std::max(mostCharacters_, units.size());
    if (units.size() > 1) {
      beginnings_[PlaceOf(units[0], units[1])] = true;
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
    seconds_ += phrase.characters.size() > 1 ? phrase.characters[1] : u'\0';
  }
  std::partial_sum(begins_.begin(), begins_.end(), begins_.begin());
}

// The second character is looked for in a place of its own, for that leaves few; of those that begin alike the shortest
// stands first.
PhraseReadings::Syllables PhraseReadings::FindAtBeginning(std::u16string_view text) const noexcept {
  if (text.empty()) {
    return {};
  }
  const std::size_t begin = begins_[text[0]];
  const auto ofFirst = std::u16string_view(seconds_).substr(begin, begins_[text[0] + 1U] - begin);
  const Phrase* longest = !ofFirst.empty() && ofFirst.front() == 0 ? &phrases_[begin] : nullptr;
  if (text.size() > 1) {
    const auto alike = std::ranges::equal_range(ofFirst, text[1]);
    const Phrase* phrase = &phrases_[begin] + (alike.begin() - ofFirst.begin());
    for (std::size_t i = 0; i < alike.size(); ++i, ++phrase) {
      longest = text.starts_with(phrase->characters) ? phrase : longest;
    }
  }
  if (longest == nullptr) {
    return {};
  }
  return Syllables(syllables_).subspan(longest->firstSyllable, longest->characters.size());
}

}  // namespace scrivanta
