// Runs of ASCII, eight characters at a time: most of what stands between the Chinese.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace scrivanta {

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
