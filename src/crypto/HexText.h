// Bytes as hexadecimal text, as encrypted text is shown and pasted.
#pragma once

#include <string>
#include <string_view>

#include "crypto/Octets.h"

namespace scrivanta {

// Two upper-case digits a byte, two spaces before every group of so many bytes but the first. groupSize is at least 1.
std::u16string ToGroupedHex(std::span<const std::uint8_t> bytes, std::size_t groupSize);

// Two digits of either case a byte; a character whose low eight bits are no digit is passed over, and a digit without a
// second one is dropped.
Octets FromHex(std::u16string_view text);

}  // namespace scrivanta
