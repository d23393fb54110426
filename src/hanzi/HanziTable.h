// The data of hanzi/, as the generated table holds it. Hanzi.h is what the rest of the program uses.
#pragma once

#include <span>
#include <string_view>

namespace scrivanta {

// Syllables stand in the order of dictionaries: by letters, ü behind u, then by tone. The characters are those of which
// it is the usual reading; none for one that occurs in phrases alone.
struct SyllableRow {
  std::u16string_view syllable;  // "zhòng"
  std::u16string_view characters;
};
std::span<const SyllableRow> Syllables() noexcept;

// Characters that may also be read with another initial letter than their usual reading has.
struct OtherInitialRow {
  char16_t letter;
  std::u16string_view characters;
};
std::span<const OtherInitialRow> OtherInitials() noexcept;

// In the order of their numbers, the characters of each in the order of their codes.
struct StrokeRow {
  int strokes;
  std::u16string_view characters;
};
std::span<const StrokeRow> Strokes() noexcept;

// Of two characters or more, in their order; one syllable a character, separated by spaces.
struct PhraseRow {
  std::u16string_view phrase;
  std::u16string_view syllables;
};
std::span<const PhraseRow> Phrases() noexcept;

}  // namespace scrivanta
