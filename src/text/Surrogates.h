// Surrogates, and what the decoders share for input that is no text: undecodable bytes and lone surrogates, kept so
// that they go back to the same bytes.
#pragma once

#include <cstddef>
#include <string>

namespace scrivanta {

constexpr bool IsHighSurrogate(char16_t unit) {
  return (unit & 0xFC00) == 0xD800;
}

constexpr bool IsLowSurrogate(char16_t unit) {
  return (unit & 0xFC00) == 0xDC00;
}

constexpr bool IsSurrogate(char16_t unit) {
  return (unit & 0xF800) == 0xD800;
}

constexpr char32_t CodePointOfPair(char16_t high, char16_t low) {
  return 0x10000U + ((high & 0x3FFU) << 10U) + (low & 0x3FFU);
}

constexpr char16_t HighSurrogateOf(char32_t codePoint) {
  return static_cast<char16_t>(0xD7C0U + (codePoint >> 10U));
}

constexpr char16_t LowSurrogateOf(char32_t codePoint) {
  return static_cast<char16_t>(0xDC00U + (codePoint & 0x3FFU));
}

// Appends lone units to the text of one call of a decoder. A lone high surrogate and a low one behind it would be read
// as a pair and encoded as something else; the high one is then put down as the bytes of its form instead.
class LoneUnits {
 public:
  using BytesOfUnit = std::string (*)(char16_t unit);

  // The text so far is not of this call and is left alone.
  LoneUnits(std::u16string& text, BytesOfUnit bytesOfUnit)
      : text_(text), begin_(text.size()), bytesOfUnit_(bytesOfUnit) {}

  void AppendByte(unsigned char byte);
  void AppendSurrogate(char16_t unit);

 private:
  void TakeHighsApart();

  std::u16string& text_;
  std::size_t begin_;
  BytesOfUnit bytesOfUnit_;
};

}  // namespace scrivanta
