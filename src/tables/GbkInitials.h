// The initials of lines in GBK, found in their bytes: the characters need not be decoded for it.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "hanzi/PhraseReadings.h"

namespace scrivanta {

// A line is read as text here, and neither as a name nor for its doubtful characters.
class GbkInitials {
 public:
  // By syllable, and what each unit of the basic plane gives: 0 for nothing, a letter in ASCII, or itself.
  GbkInitials(std::string_view letters, std::u16string_view ofUnits);

  // Writes at most as many bytes as the line has and returns the end of them; null when a character of the line takes
  // one byte beyond ASCII or four, or its bytes are no text.
  char* Put(std::string_view line, char* output);

 private:
  static constexpr std::size_t kCodes = 0x10000;
  static constexpr char kItself = '\x01';
  static constexpr char kRare = '\x02';

  PhraseReadings::Syllables PhraseAt(const char* at, const char* behind);

  std::string_view letters_;
  // Letters, 0, kItself or kRare, by both bytes of a character or its only one.
  std::vector<char> ofCodes_ = std::vector<char>(kCodes, kRare);
  const PhraseReadings& phrases_ = PhraseReadings::OfTextsInGbk();
  std::u16string codes_;
};

}  // namespace scrivanta
