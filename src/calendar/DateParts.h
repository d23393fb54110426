// The parts of a date as people write it.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace scrivanta {

struct DateParts {
  int year = 0;
  std::u16string_view month;  // not empty
  std::u16string_view day;    // not empty
};

// Splits "2033-12-22", "2033/闰11/1", "2033.1.1" and "2033年闰十一月初一", with blanks around. Nothing when it is none
// of them.
std::optional<DateParts> SplitDate(std::u16string_view text);

// At most four digits and nothing else.
std::optional<int> ParseDigits(std::u16string_view text);

}  // namespace scrivanta
