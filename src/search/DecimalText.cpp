#include "search/DecimalText.h"

namespace scrivanta {

std::u16string DecimalText(std::size_t number) {
  const std::string digits = std::to_string(number);
  return {digits.begin(), digits.end()};
}

}  // namespace scrivanta
