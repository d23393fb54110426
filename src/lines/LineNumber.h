// The first number in a line, of any length and exact.
#pragma once

#include <compare>
#include <cstdint>
#include <string_view>

#include "text/Encoding.h"

namespace scrivanta {

// Begins at the first digit (0 to 9) of the line. Digits that follow belong to it, a point with digits behind it too,
// and a "-" directly in front of the first digit makes it negative. A line without a digit has the number 0.
class LineNumber {
 public:
  // Views into the line.
  LineNumber(std::string_view line, Encoding encoding);

  // Numbers with different keys are in the order of their keys.
  std::uint64_t Key() const;
  // Whether Key says all about a number, so that numbers with the same exact key are equal.
  static bool IsExactKey(std::uint64_t key);

  friend std::weak_ordering operator<=>(const LineNumber& left, const LineNumber& right);

 private:
  std::uint64_t MagnitudeKey() const;

  bool negative_ = false;
  std::string_view whole_;     // digits before the point, without leading zeros
  std::string_view fraction_;  // digits behind it, without trailing zeros
};

}  // namespace scrivanta
