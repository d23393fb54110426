// Runs of ASCII, eight characters at a time: most of what stands between the Chinese.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace scrivanta {

// How many bytes are no ASCII.
inline std::size_t CountNonAscii(std::string_view bytes) {
  std::size_t count = 0;
  std::size_t i = 0;
  for (; i + 8 <= bytes.size(); i += 8) {
    std::uint64_t eight = 0;
    std::memcpy(&eight, bytes.data() + i, sizeof(eight));
    // One bit a byte; the product has their sum in its highest byte.
    count += static_cast<std::size_t>((((eight >> 7U) & 0x0101010101010101U) * 0x0101010101010101U) >> 56U);
  }
  for (; i < bytes.size(); ++i) {
    count += static_cast<unsigned char>(bytes[i]) >> 7U;
  }
  return count;
}

// How many units are no ASCII.
inline std::size_t CountNonAscii(std::u16string_view text) {
  std::size_t count = 0;
  for (const char16_t unit : text) {
    count += unit > 0x7F ? 1 : 0;
  }
  return count;
}

// Whether the eight bytes are all ASCII.
inline bool AreEightAscii(const unsigned char* bytes) {
  std::uint64_t eight = 0;
  std::memcpy(&eight, bytes, sizeof(eight));
  return (eight & 0x8080808080808080U) == 0;
}

inline void SkipAsciiRun(const unsigned char*& input, const unsigned char* end) {
  while (end - input >= 8 && AreEightAscii(input)) {
    input += 8;
  }
}

// Copies ASCII from input to output as long as eight characters at once are nothing else, moving both on. Fewer than
// eight are left to the caller, who has to look at them one by one anyway.
inline void WidenAsciiRun(const unsigned char*& input, const unsigned char* end, char16_t*& output) {
  while (end - input >= 8 && AreEightAscii(input)) {
    for (std::size_t i = 0; i < 8; ++i) {
      output[i] = input[i];
    }
    input += 8;
    output += 8;
  }
}

inline void NarrowAsciiRun(const char16_t*& input, const char16_t* end, char*& output) {
  while (end - input >= 8) {
    std::uint64_t fours[2];
    std::memcpy(fours, input, sizeof(fours));
    if (((fours[0] | fours[1]) & 0xFF80FF80FF80FF80U) != 0) {
      return;
    }
    for (std::size_t i = 0; i < 8; ++i) {
      output[i] = static_cast<char>(input[i]);
    }
    input += 8;
    output += 8;
  }
}

}  // namespace scrivanta
