// Bytes written as hexadecimal in a test.
#pragma once

#include <string_view>

#include "crypto/HexText.h"

namespace scrivanta::testing {

inline Octets Hex(std::u16string_view digits) {
  return FromHex(digits);
}

inline Octets ToOctets(std::string_view bytes) {
  const std::span<const std::uint8_t> octets = AsOctets(bytes);
  return {octets.begin(), octets.end()};
}

}  // namespace scrivanta::testing
