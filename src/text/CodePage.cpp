#include "text/CodePage.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

#include "text/AsciiRun.h"
#include "text/CodePageTable.h"
#include "text/EncodeInBlocks.h"
#include "text/Surrogates.h"

namespace scrivanta {

namespace {

constexpr char16_t kEuro = 0x20AC;
constexpr char kEuroByte = '\x80';
// GB18030 gives A2 E3 to the euro sign, code page 936 to this private character.
constexpr char16_t kPrivateForEuro = 0xE76C;

// Four-byte forms are counted from 81 30 81 30 on: first the basic plane without what has a shorter form, later the
// other planes, last the user-defined area.
constexpr std::uint32_t kBasicPlaneForms = 39420;
constexpr std::uint32_t kOtherPlanesBegin = 189000;  // 90 30 81 30
constexpr std::uint32_t kSurrogatesBegin = 1562400;  // FD 30 81 30
constexpr std::uint32_t kSurrogates = 0x800;
constexpr std::uint32_t kCharactersBeyondBasicPlane = 0x100000;

// Both directions of the code page, made of the generated characters when they are first needed.
class Tables {
 public:
  Tables() {
    FillTwoByteForms();
    FillFourByteForms();
  }

  // The character of a lead and a trail byte; 0 when they are none.
  char16_t OfTwoBytes(unsigned lead, unsigned trail) const { return ofTwoBytes_[((lead & 0x7FU) << 8U) | trail]; }
  // The character of the basic plane with this number among the four-byte forms; 0 when it has a shorter form.
  char16_t OfFourByteNumber(std::uint32_t number) const { return ofFourByteNumber_[number]; }
  // The two bytes of the character, lead byte above; 0 when it has none.
  std::uint16_t TwoBytesOf(char16_t unit) const { return twoBytes_[unit]; }
  std::uint16_t FourByteNumberOf(char16_t unit) const { return fourByteNumber_[unit]; }

 private:
  void FillTwoByteForms() {
    auto character = TwoByteCharacters().begin();
    for (unsigned lead = 0x81; lead <= 0xFE; ++lead) {
      for (unsigned trail = 0x40; trail <= 0xFE; ++trail) {
        if (trail == 0x7F) {
          continue;
        }
        ofTwoBytes_[((lead & 0x7FU) << 8U) | trail] = *character;
        twoBytes_[*character] = static_cast<std::uint16_t>((lead << 8U) | trail);
        ++character;
      }
    }
  }

  void FillFourByteForms() {
    std::uint16_t number = 0;
    for (std::uint32_t unit = 0x80; unit <= 0xFFFF; ++unit) {
      const auto character = static_cast<char16_t>(unit);
      const bool shortInGb18030 = character == kEuro || (twoBytes_[unit] != 0 && character != kPrivateForEuro);
      if (shortInGb18030 || IsSurrogate(character)) {
        continue;
      }
      fourByteNumber_[unit] = number;
      ofFourByteNumber_[number] = twoBytes_[unit] == 0 ? character : u'\0';
      ++number;
    }
  }

  std::array<char16_t, 0x8000> ofTwoBytes_{};
  std::array<char16_t, kBasicPlaneForms> ofFourByteNumber_{};
  std::array<std::uint16_t, 0x10000> twoBytes_{};
  std::array<std::uint16_t, 0x10000> fourByteNumber_{};
};

const Tables& TheTables() {
  static const Tables kTables;
  return kTables;
}

void AppendFourBytes(std::uint32_t number, char*& output) {
  output[3] = static_cast<char>(0x30 + number % 10);
  number /= 10;
  output[2] = static_cast<char>(0x81 + number % 126);
  number /= 126;
  output[1] = static_cast<char>(0x30 + number % 10);
  output[0] = static_cast<char>(0x81 + number / 10);
  output += 4;
}

std::string FourBytesOfSurrogate(char16_t unit) {
  std::string bytes(4, '\0');
  char* output = bytes.data();
  AppendFourBytes(kSurrogatesBegin + (unit - 0xD800U), output);
  return bytes;
}

// The number of the four-byte form that begins here, if one does.
std::optional<std::uint32_t> FourByteNumber(const unsigned char* at, const unsigned char* end) {
  const auto isDigit = [](unsigned char byte) { return byte >= 0x30 && byte <= 0x39; };
  const auto isLead = [](unsigned char byte) { return byte >= 0x81 && byte <= 0xFE; };
  if (end - at < 4 || !isLead(at[0]) || !isDigit(at[1]) || !isLead(at[2]) || !isDigit(at[3])) {
    return std::nullopt;
  }
  return ((at[0] - 0x81U) * 10 + (at[1] - 0x30U)) * 1260 + (at[2] - 0x81U) * 10 + (at[3] - 0x30U);
}

class Decoder {
 public:
  Decoder(std::string_view bytes, std::u16string& text)
      // The bytes of the source are looked at as numbers.
      : at_(reinterpret_cast<const unsigned char*>(bytes.data())),
        end_(at_ + bytes.size()),
        text_(text),
        loneUnits_(text, FourBytesOfSurrogate) {}

  void Run() {
    while (at_ < end_) {
      DecodeBlock();
      if (at_ < end_) {
        DecodeRareForm();
      }
    }
  }

 private:
  // Up to a full block of characters of one and two bytes; stops before anything else.
  void DecodeBlock() {
    std::array<char16_t, 4096> block;  // not initialised: what is appended has been written
    const unsigned char* at = at_;
    const unsigned char* const limit = at + std::min<std::size_t>(block.size(), static_cast<std::size_t>(end_ - at));
    char16_t* output = block.data();
    while (at < limit) {
      if (*at < 0x80) {
        WidenAsciiRun(at, limit, output);
        while (at < limit && *at < 0x80) {
          *output++ = *at++;
        }
        continue;
      }
      const char16_t character = end_ - at >= 2 ? tables_.OfTwoBytes(at[0], at[1]) : u'\0';
      if (character != 0) {
        *output++ = character;
        at += 2;
      } else if (*at == static_cast<unsigned char>(kEuroByte)) {
        *output++ = kEuro;
        ++at;
      } else {
        break;
      }
    }
    at_ = at;
    text_.append(block.data(), output);
  }

  // A four-byte form, or one byte that begins no character. Also called, after a full block, where neither stands.
  void DecodeRareForm() {
    if (*at_ <= 0x80 || (end_ - at_ >= 2 && tables_.OfTwoBytes(at_[0], at_[1]) != 0)) {
      return;
    }
    if (const auto number = FourByteNumber(at_, end_); number && AppendFourByteForm(*number)) {
      at_ += 4;
    } else {
      loneUnits_.AppendByte(*at_++);
    }
  }

  bool AppendFourByteForm(std::uint32_t number) {
    if (number < kBasicPlaneForms) {
      const char16_t character = tables_.OfFourByteNumber(number);
      if (character == 0) {
        return false;
      }
      text_.push_back(character);
      return true;
    }
    if (number >= kOtherPlanesBegin && number - kOtherPlanesBegin < kCharactersBeyondBasicPlane) {
      const char32_t codePoint = 0x10000U + (number - kOtherPlanesBegin);
      text_.push_back(HighSurrogateOf(codePoint));
      text_.push_back(LowSurrogateOf(codePoint));
      return true;
    }
    if (number >= kSurrogatesBegin && number - kSurrogatesBegin < kSurrogates) {
      const auto unit = static_cast<char16_t>(0xD800U + (number - kSurrogatesBegin));
      if (unit > 0xDC80 && unit <= 0xDCFF) {
        return false;  // has a form of one byte
      }
      loneUnits_.AppendSurrogate(unit);
      return true;
    }
    return false;
  }

  const Tables& tables_ = TheTables();
  const unsigned char* at_;
  const unsigned char* end_;
  std::u16string& text_;
  LoneUnits loneUnits_;
};

class GbkForm {
 public:
  static constexpr std::size_t kMostBytesOfUnit = 4;

  void Put(const char16_t*& at, const char16_t* end, char*& output) const {
    if (const std::uint16_t twoBytes = tables_.TwoBytesOf(*at)) {
      output[0] = static_cast<char>(twoBytes >> 8U);
      output[1] = static_cast<char>(twoBytes & 0xFFU);
      output += 2;
      ++at;
    } else {
      PutRareForm(at, end, output);
    }
  }

 private:
  void PutRareForm(const char16_t*& at, const char16_t* end, char*& output) const {
    const char16_t unit = *at++;
    if (unit == kEuro) {
      *output++ = kEuroByte;
    } else if (!IsSurrogate(unit)) {
      AppendFourBytes(tables_.FourByteNumberOf(unit), output);
    } else if (IsHighSurrogate(unit) && at < end && IsLowSurrogate(*at)) {
      AppendFourBytes(kOtherPlanesBegin + (CodePointOfPair(unit, *at++) - 0x10000U), output);
    } else if (unit > 0xDC80 && unit <= 0xDCFF) {
      *output++ = static_cast<char>(unit & 0xFFU);
    } else {
      AppendFourBytes(kSurrogatesBegin + (unit - 0xD800U), output);
    }
  }

  const Tables& tables_ = TheTables();
};

// The codes of two bytes to which GB18030 gives a character of its own and the code page a private one.
bool IsOfGb18030Alone(char16_t unit, std::uint16_t twoBytes) {
  const bool inItsRanges =
      twoBytes == 0xA8BF || (twoBytes >= 0xA989 && twoBytes <= 0xA995) || (twoBytes >= 0xFE50 && twoBytes <= 0xFEA0);
  const bool isPrivate = unit >= 0xE000 && unit <= 0xF8FF;
  return inItsRanges && !isPrivate;
}

}  // namespace

void DecodeGbkAppend(std::string_view bytes, std::u16string& text) {
  text.reserve(text.size() + bytes.size() - CountNonAscii(bytes) / 2);
  Decoder(bytes, text).Run();
}

void EncodeGbkAppend(std::u16string_view text, std::string& bytes) {
  bytes.reserve(bytes.size() + text.size() + CountNonAscii(text));
  EncodeInBlocks(text, GbkForm(), bytes);
}

bool ExceedsCodePage936(std::u16string_view text) {
  const Tables& tables = TheTables();
  return std::any_of(text.begin(), text.end(), [&tables](char16_t unit) {
    if (unit < 0x80 || unit == kEuro || (unit > 0xDC80 && unit <= 0xDCFF)) {
      return false;
    }
    const std::uint16_t twoBytes = tables.TwoBytesOf(unit);
    return twoBytes == 0 || IsOfGb18030Alone(unit, twoBytes);
  });
}

}  // namespace scrivanta
