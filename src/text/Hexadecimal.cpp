#include "text/Hexadecimal.h"

#include <limits>

namespace scrivanta {

std::optional<std::uint32_t> ParseHexadecimal(std::u16string_view digits) {
  constexpr std::uint64_t kBase = 16;
  std::uint64_t number = 0;
  for (const char16_t character : digits) {
    const int digit = HexDigitValue(character);
    if (digit < 0) {
      return std::nullopt;
    }
    number = number * kBase + static_cast<std::uint64_t>(digit);
    if (number > std::numeric_limits<std::uint32_t>::max()) {
      return std::nullopt;
    }
  }
  return digits.empty() ? std::nullopt : std::optional(static_cast<std::uint32_t>(number));
}

}  // namespace scrivanta
