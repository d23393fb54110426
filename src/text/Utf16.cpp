#include "text/Utf16.h"

#include <cstddef>

namespace scrivanta {

namespace {

// Which of the two bytes of a unit is the low one.
std::size_t LowByte(ByteOrder order) {
  return order == ByteOrder::kLittleEndian ? 0 : 1;
}

}  // namespace

std::u16string DecodeUtf16(ByteOrder order, std::string_view bytes) {
  const std::size_t low = LowByte(order);
  std::u16string text(bytes.size() / 2, u'\0');
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto lowByte = static_cast<unsigned char>(bytes[2 * i + low]);
    const auto highByte = static_cast<unsigned char>(bytes[2 * i + 1 - low]);
    text[i] = static_cast<char16_t>(lowByte | (highByte << 8U));
  }
  if (bytes.size() % 2 != 0) {
    text += static_cast<char16_t>(0xDC00U + static_cast<unsigned char>(bytes.back()));
  }
  return text;
}

void EncodeUtf16Append(ByteOrder order, std::u16string_view text, std::string& bytes) {
  const std::size_t low = LowByte(order);
  const std::size_t begin = bytes.size();
  bytes.resize(begin + 2 * text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    bytes[begin + 2 * i + low] = static_cast<char>(text[i] & 0xFFU);
    bytes[begin + 2 * i + 1 - low] = static_cast<char>(text[i] >> 8U);
  }
}

}  // namespace scrivanta
