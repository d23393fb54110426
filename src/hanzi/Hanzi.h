// What is known of single Chinese characters: their usual reading in Mandarin, and their strokes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace scrivanta {

// A syllable with its tone, as a number that grows in the order of dictionaries.
using Syllable = std::uint16_t;
inline constexpr Syllable kNoSyllable = 0;

// "zhòng"; empty for kNoSyllable.
std::u16string_view SpellingOf(Syllable syllable) noexcept;
// How many there are; the last has this number.
std::size_t SyllableCount() noexcept;
// A capital letter; 0 for kNoSyllable.
char16_t InitialOf(Syllable syllable) noexcept;

// Of two bytes, so that those of all characters stay at hand for the processor.
class Reading {
 public:
  constexpr Reading() = default;
  constexpr explicit Reading(Syllable syllable, bool isDoubtful = false)
      : syllable_(syllable & 0x7FFFU), isDoubtful_(isDoubtful ? 1 : 0) {}

  // kNoSyllable also of what is no Chinese character.
  constexpr Syllable syllable() const noexcept { return syllable_; }
  // The character has other readings too, with other initials.
  constexpr bool isDoubtful() const noexcept { return isDoubtful_ != 0; }

 private:
  std::uint16_t syllable_ : 15 = kNoSyllable;
  std::uint16_t isDoubtful_ : 1 = 0;
};

// Characters of the basic plane, and of those beyond it what the general standard table of characters holds; all others
// have nothing. Loops over texts keep the reference.
class HanziData {
 public:
  static const HanziData& Get() noexcept;

  // The usual one.
  Reading ReadingOf(char32_t character) const noexcept { return readings_.Of(character); }
  // The place of a character, from 1, in the order of all by strokes and then by code; 0 while the strokes are unknown.
  std::uint16_t StrokePlaceOf(char32_t character) const noexcept { return strokePlaces_.Of(character); }

 private:
  template <typename T>
  class ByCharacter {
   public:
    T Of(char32_t character) const noexcept {
      if (character < kBasicPlane) {
        return basic_[character];
      }
      const auto found = beyond_.find(character);
      return found == beyond_.end() ? T() : found->second;
    }
    T& At(char32_t character) { return character < kBasicPlane ? basic_[character] : beyond_[character]; }

   private:
    static constexpr std::size_t kBasicPlane = 0x10000;

    std::vector<T> basic_ = std::vector<T>(kBasicPlane);  // by code
    std::map<char32_t, T> beyond_;
  };

  HanziData();

  ByCharacter<Reading> readings_;
  ByCharacter<std::uint16_t> strokePlaces_;
};

// The letters with which the readings of a character begin beside its usual one; capitals, in alphabetical order.
std::u16string OtherInitialsOf(char32_t character);

}  // namespace scrivanta
