#include "crypto/NumericCipher.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <stdexcept>

#include "crypto/Octets.h"
#include "text/DecimalText.h"
#include "text/Encoding.h"
#include "text/ExplainedError.h"
#include "text/LineText.h"
#include "text/Surrogates.h"

namespace scrivanta {

namespace {

// The number that the codes are combined with. The octal digits of the key are read back as a decimal number: that is
// how the cipher is defined.
std::int32_t Mask(std::uint64_t key) {
  if (key > kLargestNumericKey) {
    throw std::invalid_argument("the numeric key is too large");
  }
  constexpr std::uint64_t kSmallKey = 11;
  std::int32_t mask = 0;
  for (const char16_t digit : ToBase(key <= kSmallKey ? key * 3 + 15 : key, 8)) {
    mask = mask * 10 + (digit - u'0');
  }
  return mask;
}

[[noreturn]] void RefuseCharacter(std::u16string_view text, std::size_t at) {
  const bool pair = IsHighSurrogate(text[at]) && at + 1 < text.size() && IsLowSurrogate(text[at + 1]);
  const std::u16string character(text.substr(at, pair ? 2 : 1));
  throw ExplainedError(
      "character " + std::to_string(at + 1) + " is not in code page 936, so the numeric cipher has no code for it",
      u"第 " + DecimalText(at + 1) + u" 个字符“" + character +
          u"”不在 GBK 字符集中，数字加密无法处理。请选用 Rijndael 加密。");
}

// A single byte as itself, two bytes as a signed number of 16 bits; nothing for the longer forms.
std::optional<int> CodeOf(std::string_view bytes) {
  const std::span<const std::uint8_t> octets = AsOctets(bytes);
  switch (octets.size()) {
    case 1:
      return octets[0];
    case 2:
      return static_cast<std::int16_t>(octets[0] << 8 | octets[1]);
    default:
      return std::nullopt;
  }
}

void AppendCharacter(int code, std::u16string& text) {
  const char bytes[] = {static_cast<char>(code >> 8), static_cast<char>(code)};
  const bool single = code >= 0 && code <= 0xFF;
  DecodeAppend(Encoding::kGbk, single ? std::string_view(bytes + 1, 1) : std::string_view(bytes, 2), text);
}

// Nothing for what is no decimal number of 32 bits.
std::optional<std::int32_t> ParseNumber(std::u16string_view digits) {
  constexpr std::size_t kLongest = 11;  // characters of -2147483648
  if (digits.size() > kLongest) {
    return std::nullopt;
  }
  std::string ascii;
  for (const char16_t digit : digits) {
    ascii += digit < 0x80 ? static_cast<char>(digit) : '?';
  }
  std::int32_t number = 0;
  const auto [end, error] = std::from_chars(ascii.data(), ascii.data() + ascii.size(), number);
  return error == std::errc() && end == ascii.data() + ascii.size() ? std::optional(number) : std::nullopt;
}

}  // namespace

std::u16string ToBase(std::uint64_t number, unsigned base) {
  constexpr std::u16string_view kDigits = u"0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ";
  if (base < 2 || base > kDigits.size()) {
    throw std::invalid_argument("a base is 2 to 36");
  }
  std::u16string digits;
  do {
    digits += kDigits[number % base];
    number /= base;
  } while (number != 0);
  std::reverse(digits.begin(), digits.end());
  return digits;
}

std::uint64_t NumericKey(std::u16string_view digits) {
  if (digits.empty() || digits.find_first_not_of(u"0123456789") != std::u16string_view::npos) {
    throw ExplainedError("the numeric key must consist of digits", u"数字加密的密钥只能由数字组成。");
  }
  std::uint64_t key = 0;
  for (const char16_t digit : digits) {
    key = key * 10 + (digit - u'0');
    if (key > kLargestNumericKey) {
      throw ExplainedError(
          "the numeric key is too large: at most " + std::to_string(kLargestNumericKey) + " can be used",
          u"密钥太大：数字加密的密钥不能超过 " + DecimalText(kLargestNumericKey) +
              u"。请改用较小的密钥，或选用 Rijndael 加密。");
    }
  }
  return key;
}

std::u16string TextEncrypt(std::u16string_view text, std::uint64_t key) {
  const std::int32_t mask = Mask(key);
  std::u16string result;
  std::string bytes;
  for (std::size_t at = 0; at < text.size(); ++at) {
    bytes.clear();
    EncodeAppend(Encoding::kGbk, text.substr(at, 1), bytes);
    const std::optional<int> code = CodeOf(bytes);
    if (!code) {
      RefuseCharacter(text, at);
    }
    char digits[12];
    const auto [end, error] = std::to_chars(std::begin(digits), std::end(digits), *code ^ mask);
    if (at != 0) {
      result += u' ';
    }
    result.append(std::begin(digits), end);
  }
  return result;
}

std::optional<std::u16string> TextDecrypt(std::u16string_view text, std::uint64_t key) {
  if (text.empty()) {
    return std::u16string();
  }
  const std::int32_t mask = Mask(key);
  std::u16string_view rest = TrimSpaces(text);
  std::u16string result;
  for (;;) {
    const std::size_t space = rest.find(u' ');
    const std::optional<std::int32_t> number = ParseNumber(rest.substr(0, space));
    if (!number) {
      return std::nullopt;
    }
    const int code = *number ^ mask;
    if (code < std::numeric_limits<std::int16_t>::min() || code > std::numeric_limits<std::uint16_t>::max()) {
      return std::nullopt;
    }
    AppendCharacter(code, result);
    if (space == std::u16string_view::npos) {
      return result;
    }
    rest.remove_prefix(space + 1);
  }
}

}  // namespace scrivanta
