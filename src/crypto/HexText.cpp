#include "crypto/HexText.h"

#include "text/Hexadecimal.h"

namespace scrivanta {

namespace {

constexpr std::u16string_view kDigits = u"0123456789ABCDEF";

}  // namespace

std::u16string ToGroupedHex(std::span<const std::uint8_t> bytes, std::size_t groupSize) {
  std::u16string text;
  text.reserve(bytes.size() * 2 + bytes.size() / groupSize * 2);
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    if (i != 0 && i % groupSize == 0) {
      text.append(2, u' ');
    }
    text += kDigits[bytes[i] >> 4];
    text += kDigits[bytes[i] & 15];
  }
  return text;
}

Octets FromHex(std::u16string_view text) {
  Octets bytes;
  bytes.reserve(text.size() / 2);
  int high = -1;
  for (const char16_t character : text) {
    const int value = HexDigitValue(static_cast<char16_t>(character & 0xFF));
    if (value < 0) {
      continue;
    }
    if (high < 0) {
      high = value;
    } else {
      bytes.push_back(static_cast<std::uint8_t>(high * 16 + value));
      high = -1;
    }
  }
  return bytes;
}

}  // namespace scrivanta
