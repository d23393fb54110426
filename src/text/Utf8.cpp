#include "text/Utf8.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "text/AsciiRun.h"
#include "text/EncodeInBlocks.h"
#include "text/Surrogates.h"

namespace scrivanta {

namespace {

// The bytes of a text are looked at as numbers.
const unsigned char* Bytes(std::string_view bytes) {
  return reinterpret_cast<const unsigned char*>(bytes.data());
}

constexpr bool IsUndecodedByte(char16_t unit) {
  return unit >= 0xDC80 && unit <= 0xDCFF;
}

constexpr bool IsContinuation(unsigned char byte) {
  return (byte & 0xC0) == 0x80;
}

constexpr char16_t UnitOfThreeBytes(const unsigned char* at) {
  return static_cast<char16_t>(((at[0] & 0xFU) << 12U) | ((at[1] & 0x3FU) << 6U) | (at[2] & 0x3FU));
}

void PutThreeBytes(char16_t unit, char*& output) {
  output[0] = static_cast<char>(0xE0U | (unit >> 12U));
  output[1] = static_cast<char>(0x80U | ((unit >> 6U) & 0x3FU));
  output[2] = static_cast<char>(0x80U | (unit & 0x3FU));
  output += 3;
}

void PutFourBytes(char32_t codePoint, char*& output) {
  output[0] = static_cast<char>(0xF0U | (codePoint >> 18U));
  output[1] = static_cast<char>(0x80U | ((codePoint >> 12U) & 0x3FU));
  output[2] = static_cast<char>(0x80U | ((codePoint >> 6U) & 0x3FU));
  output[3] = static_cast<char>(0x80U | (codePoint & 0x3FU));
  output += 4;
}

std::string BytesOfSurrogate(char16_t unit) {
  std::string bytes(3, '\0');
  char* output = bytes.data();
  PutThreeBytes(unit, output);
  return bytes;
}

// How many bytes the well-formed character of two bytes or more takes that begins here; 0 when none does.
inline std::size_t LengthOfCharacter(const unsigned char* at, const unsigned char* end) {
  const auto left = static_cast<std::size_t>(end - at);
  if (left >= 3 && (at[0] & 0xF0U) == 0xE0 && IsContinuation(at[1]) && IsContinuation(at[2])) {
    const char16_t unit = UnitOfThreeBytes(at);
    const bool isOverlong = unit < 0x800;
    return isOverlong || IsSurrogate(unit) ? 0 : 3;
  }
  if (left >= 2 && at[0] >= 0xC2 && at[0] <= 0xDF && IsContinuation(at[1])) {
    return 2;
  }
  if (left >= 4 && at[0] >= 0xF0 && at[0] <= 0xF4 && IsContinuation(at[1]) && IsContinuation(at[2]) &&
      IsContinuation(at[3])) {
    const bool isOverlong = at[0] == 0xF0 && at[1] < 0x90;
    const bool isBeyondUnicode = at[0] == 0xF4 && at[1] >= 0x90;
    return isOverlong || isBeyondUnicode ? 0 : 4;
  }
  return 0;
}

class Decoder {
 public:
  Decoder(std::string_view bytes, std::u16string& text)
      : at_(Bytes(bytes)), end_(at_ + bytes.size()), text_(text), loneUnits_(text, BytesOfSurrogate) {}

  void Run() {
    while (at_ < end_) {
      DecodeBlock();
      if (at_ < end_ && *at_ >= 0x80 && LengthOfCharacter(at_, end_) == 0) {
        DecodeNoCharacter();
      }
    }
  }

 private:
  // Up to a full block of well-formed characters; stops before anything else.
  void DecodeBlock() {
    std::array<char16_t, 4096> block;  // not initialised: what is appended has been written
    const unsigned char* at = at_;
    // The last character may be a pair.
    const std::size_t most = block.size() - 1;
    const unsigned char* const limit = at + std::min(most, static_cast<std::size_t>(end_ - at));
    char16_t* output = block.data();
    while (at < limit) {
      if (*at < 0x80) {
        WidenAsciiRun(at, limit, output);
        while (at < limit && *at < 0x80) {
          *output++ = *at++;
        }
        continue;
      }
      const std::size_t length = LengthOfCharacter(at, end_);
      if (length == 0) {
        break;
      }
      PutCharacter(at, length, output);
      at += length;
    }
    at_ = at;
    text_.append(block.data(), output);
  }

  static void PutCharacter(const unsigned char* at, std::size_t length, char16_t*& output) {
    if (length == 3) {
      *output++ = UnitOfThreeBytes(at);
    } else if (length == 2) {
      *output++ = static_cast<char16_t>(((at[0] & 0x1FU) << 6U) | (at[1] & 0x3FU));
    } else {
      const char32_t codePoint =
          ((at[0] & 0x7U) << 18U) | ((at[1] & 0x3FU) << 12U) | ((at[2] & 0x3FU) << 6U) | (at[3] & 0x3FU);
      *output++ = HighSurrogateOf(codePoint);
      *output++ = LowSurrogateOf(codePoint);
    }
  }

  // A lone surrogate in its three bytes, or one byte that begins no character.
  void DecodeNoCharacter() {
    if (end_ - at_ >= 3 && at_[0] == 0xED && at_[1] >= 0xA0 && IsContinuation(at_[1]) && IsContinuation(at_[2])) {
      const char16_t unit = UnitOfThreeBytes(at_);
      if (!IsUndecodedByte(unit)) {
        loneUnits_.AppendSurrogate(unit);
        at_ += 3;
        return;
      }
    }
    loneUnits_.AppendByte(*at_++);
  }

  const unsigned char* at_;
  const unsigned char* end_;
  std::u16string& text_;
  LoneUnits loneUnits_;
};

struct Utf8Form {
  static constexpr std::size_t kMostBytesOfUnit = 3;

  static void Put(const char16_t*& at, const char16_t* end, char*& output) {
    const char16_t unit = *at++;
    if (unit < 0x800) {
      output[0] = static_cast<char>(0xC0U | (unit >> 6U));
      output[1] = static_cast<char>(0x80U | (unit & 0x3FU));
      output += 2;
    } else if (IsHighSurrogate(unit) && at < end && IsLowSurrogate(*at)) {
      PutFourBytes(CodePointOfPair(unit, *at++), output);
    } else if (IsUndecodedByte(unit)) {
      *output++ = static_cast<char>(unit & 0xFFU);
    } else {
      PutThreeBytes(unit, output);
    }
  }
};

}  // namespace

Utf8Extent MeasureUtf8(std::string_view bytes) {
  const unsigned char* const begin = Bytes(bytes);
  const unsigned char* const end = begin + bytes.size();
  const unsigned char* at = begin;
  std::size_t longCharacters = 0;
  while (at < end) {
    if (*at < 0x80) {
      SkipAsciiRun(at, end);
      while (at < end && *at < 0x80) {
        ++at;
      }
      continue;
    }
    const std::size_t length = LengthOfCharacter(at, end);
    if (length == 0) {
      break;
    }
    longCharacters += length > 2 ? 1 : 0;
    at += length;
  }
  return {.bytes = static_cast<std::size_t>(at - begin), .longCharacters = longCharacters};
}

bool IsCutOffInUtf8(std::string_view bytes) {
  const unsigned char* const at = Bytes(bytes);
  const auto areContinuations = [](std::string_view rest) {
    return std::all_of(rest.begin(), rest.end(), [](char c) { return IsContinuation(static_cast<unsigned char>(c)); });
  };
  return !bytes.empty() && at[0] >= 0xE0 && at[0] <= 0xF4 && bytes.size() < (at[0] < 0xF0 ? 3U : 4U) &&
         areContinuations(bytes.substr(1));
}

void DecodeUtf8Append(std::string_view bytes, std::u16string& text) {
  // A character beyond ASCII is of three bytes nearly always.
  text.reserve(text.size() + bytes.size() - CountNonAscii(bytes) / 3 * 2);
  Decoder(bytes, text).Run();
}

void EncodeUtf8Append(std::u16string_view text, std::string& bytes) {
  bytes.reserve(bytes.size() + text.size() + 2 * CountNonAscii(text));
  EncodeInBlocks(text, Utf8Form{}, bytes);
}

}  // namespace scrivanta
