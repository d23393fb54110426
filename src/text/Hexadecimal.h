#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace scrivanta {

// The value of a hexadecimal digit of either case, -1 for any other character.
constexpr int HexDigitValue(char16_t character) noexcept {
  if (character >= u'0' && character <= u'9') {
    return character - u'0';
  }
  const char16_t small = character | 0x20;
  return small >= u'a' && small <= u'f' ? small - u'a' + 10 : -1;
}

// The number in hexadecimal digits of either case; nothing for anything else, and for what is too large.
std::optional<std::uint32_t> ParseHexadecimal(std::u16string_view digits);

}  // namespace scrivanta
