#pragma once

#include <concepts>
#include <string>

namespace scrivanta {

// A whole number in decimal digits.
template <std::integral Number>
std::u16string DecimalText(Number number) {
  const std::string digits = std::to_string(number);
  return {digits.begin(), digits.end()};
}

}  // namespace scrivanta
