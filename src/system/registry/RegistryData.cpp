#include "system/registry/RegistryData.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <optional>
#include <utility>

#include "text/DecimalText.h"
#include "text/ExplainedError.h"
#include "text/LineText.h"

namespace scrivanta {

namespace {

constexpr std::array<std::pair<RegistryType, std::u16string_view>, 12> kNames = {
    {{RegistryType::kNone, u"REG_NONE"},
     {RegistryType::kText, u"REG_SZ"},
     {RegistryType::kExpandText, u"REG_EXPAND_SZ"},
     {RegistryType::kBinary, u"REG_BINARY"},
     {RegistryType::kDword, u"REG_DWORD"},
     {RegistryType::kDwordBigEndian, u"REG_DWORD_BIG_ENDIAN"},
     {RegistryType::kLink, u"REG_LINK"},
     {RegistryType::kMultiText, u"REG_MULTI_SZ"},
     {RegistryType::kResourceList, u"REG_RESOURCE_LIST"},
     {RegistryType::kFullResourceDescriptor, u"REG_FULL_RESOURCE_DESCRIPTOR"},
     {RegistryType::kResourceRequirementsList, u"REG_RESOURCE_REQUIREMENTS_LIST"},
     {RegistryType::kQword, u"REG_QWORD"}}};
constexpr int kBitsOfByte = 8;
constexpr unsigned kByte = 0xFF;

std::u16string Hexadecimal(std::uint64_t number, std::size_t digits) {
  constexpr std::u16string_view kDigits = u"0123456789abcdef";
  constexpr unsigned kBits = 4;
  std::u16string text(digits, u'0');
  for (std::size_t i = digits; i > 0; --i, number >>= kBits) {
    text[i - 1] = kDigits[number & 0xFU];
  }
  return text;
}

// The width in bytes of a number that is a type; nothing for others.
std::optional<std::size_t> NumberSize(RegistryType type) {
  switch (type) {
    case RegistryType::kDword:
    case RegistryType::kDwordBigEndian:
      return sizeof(std::uint32_t);
    case RegistryType::kQword:
      return sizeof(std::uint64_t);
    default:
      return std::nullopt;
  }
}

std::uint64_t NumberOf(std::string_view bytes, bool bigEndian) {
  std::uint64_t number = 0;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const char byte = bytes[bigEndian ? i : bytes.size() - 1 - i];
    number = (number << kBitsOfByte) | static_cast<unsigned char>(byte);
  }
  return number;
}

std::string BytesOfNumber(std::uint64_t number, std::size_t size, bool bigEndian) {
  std::string bytes(size, '\0');
  for (std::size_t i = 0; i < size; ++i, number >>= kBitsOfByte) {
    bytes[bigEndian ? size - 1 - i : i] = static_cast<char>(number & kByte);
  }
  return bytes;
}

bool IsText(RegistryType type) {
  return type == RegistryType::kText || type == RegistryType::kExpandText || type == RegistryType::kLink;
}

std::u16string Units(std::string_view bytes) {
  std::u16string text;
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
    text += static_cast<char16_t>(NumberOf(bytes.substr(i, 2), false));
  }
  return text;
}

std::string BytesOfText(std::u16string_view text) {
  std::string bytes;
  for (const char16_t unit : text) {
    bytes += BytesOfNumber(unit, sizeof(char16_t), false);
  }
  return bytes;
}

std::u16string ShowBytes(std::string_view bytes) {
  std::u16string text;
  for (const char byte : bytes) {
    text += (text.empty() ? u"" : u" ") + Hexadecimal(static_cast<unsigned char>(byte), 2);
  }
  return text;
}

bool IsBlank(char16_t c) {
  return c == u' ' || c == u'\t' || c == u'\r' || c == u'\n';
}

std::string AsciiWithoutBlanks(std::u16string_view text) {
  std::string ascii;
  for (const char16_t c : text) {
    if (!IsBlank(c)) {
      ascii += c < 0x80 ? static_cast<char>(c) : '?';
    }
  }
  return ascii;
}

std::optional<std::uint64_t> ParseNumber(std::u16string_view text) {
  constexpr int kDecimal = 10;
  constexpr int kHexadecimal = 16;
  std::string digits = AsciiWithoutBlanks(text);
  const bool isHexadecimal = digits.starts_with("0x") || digits.starts_with("0X");
  digits.erase(0, isHexadecimal ? 2 : 0);
  std::uint64_t number = 0;
  const auto [end, error] =
      std::from_chars(digits.data(), digits.data() + digits.size(), number, isHexadecimal ? kHexadecimal : kDecimal);
  return error == std::errc() && end == digits.data() + digits.size() ? std::optional(number) : std::nullopt;
}

std::string ParseBytes(std::u16string_view text) {
  constexpr int kHexadecimal = 16;
  const auto isSeparator = [](char16_t c) { return IsBlank(c) || c == u','; };
  std::string bytes;
  for (std::size_t i = 0; i < text.size(); i += 2) {
    while (i < text.size() && isSeparator(text[i])) {
      ++i;
    }
    if (i == text.size()) {
      break;
    }
    const std::string digits = AsciiWithoutBlanks(text.substr(i, 2));
    unsigned byte = 0;
    const char* const end = digits.data() + digits.size();
    if (digits.size() < 2 || std::from_chars(digits.data(), end, byte, kHexadecimal).ptr != end) {
      throw ExplainedError("no bytes in hexadecimal", u"要写成十六进制的字节，每个字节两位，如 01 0a ff。");
    }
    bytes += static_cast<char>(byte);
  }
  return bytes;
}

}  // namespace

std::u16string RegistryTypeName(RegistryType type) {
  for (const auto& [known, name] : kNames) {
    if (known == type) {
      return std::u16string(name);
    }
  }
  return u"REG_0x" + Hexadecimal(static_cast<std::uint32_t>(type), 2 * sizeof(type));
}

const std::vector<RegistryType>& EditableRegistryTypes() {
  static const std::vector<RegistryType> kTypes = {RegistryType::kText,      RegistryType::kExpandText,
                                                   RegistryType::kMultiText, RegistryType::kDword,
                                                   RegistryType::kQword,     RegistryType::kBinary};
  return kTypes;
}

std::u16string TextOfRegistryData(std::string_view bytes) {
  std::u16string text = Units(bytes);
  text.erase(std::min(text.find(u'\0'), text.size()));
  return text;
}

std::vector<std::u16string> TextsOfRegistryData(std::string_view bytes) {
  const std::u16string text = Units(bytes);
  std::u16string_view rest = text;
  std::vector<std::u16string> texts;
  while (!rest.empty() && rest.front() != u'\0') {
    const std::size_t end = std::min(rest.find(u'\0'), rest.size());
    texts.emplace_back(rest.substr(0, end));
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  return texts;
}

RegistryValue TextValue(std::u16string_view name, std::u16string_view text, RegistryType type) {
  return {.name = std::u16string(name), .type = type, .bytes = BytesOfText(std::u16string(text) + u'\0')};
}

std::u16string ShowRegistryData(const RegistryValue& value) {
  if (IsText(value.type)) {
    return TextOfRegistryData(value.bytes);
  }
  if (value.type == RegistryType::kMultiText) {
    std::u16string shown;
    for (const std::u16string& text : TextsOfRegistryData(value.bytes)) {
      shown += (shown.empty() ? u"" : u"；") + text;
    }
    return shown;
  }
  if (NumberSize(value.type) == value.bytes.size()) {
    const std::uint64_t number = NumberOf(value.bytes, value.type == RegistryType::kDwordBigEndian);
    return u"0x" + Hexadecimal(number, 2 * value.bytes.size()) + u" (" + DecimalText(number) + u")";
  }
  constexpr std::size_t kMostShown = 512;  // bytes
  return value.bytes.size() <= kMostShown ? ShowBytes(value.bytes)
                                          : ShowBytes(std::string_view(value.bytes).substr(0, kMostShown)) + u" ……";
}

std::u16string EditRegistryData(const RegistryValue& value) {
  if (value.type == RegistryType::kMultiText) {
    std::u16string lines;
    for (const std::u16string& text : TextsOfRegistryData(value.bytes)) {
      lines += text + u"\r\n";
    }
    return lines;
  }
  if (NumberSize(value.type) == value.bytes.size()) {
    return DecimalText(NumberOf(value.bytes, value.type == RegistryType::kDwordBigEndian));
  }
  return IsText(value.type) ? TextOfRegistryData(value.bytes) : ShowBytes(value.bytes);
}

std::string ParseRegistryData(RegistryType type, std::u16string_view text) {
  if (IsText(type)) {
    return BytesOfText(std::u16string(text) + u'\0');
  }
  if (type == RegistryType::kMultiText) {
    std::u16string units;
    for (const std::u16string& line : SplitLines(text)) {
      units += line + u'\0';
    }
    return BytesOfText(units + u'\0');
  }
  if (const auto size = NumberSize(type)) {
    const auto number = ParseNumber(text);
    if (!number || (*size == sizeof(std::uint32_t) && *number > UINT32_MAX)) {
      throw ExplainedError("no number that the type holds",
                           u"要写成" + DecimalText(*size * kBitsOfByte) + u"位的整数，如 10 或 0x0a。");
    }
    return BytesOfNumber(*number, *size, type == RegistryType::kDwordBigEndian);
  }
  return ParseBytes(text);
}

}  // namespace scrivanta
