#include "contacts/CardProperty.h"

#include <algorithm>
#include <array>

#include "contacts/QuotedPrintable.h"
#include "text/AsciiRun.h"
#include "text/Encoding.h"
#include "text/LineText.h"
#include "text/Utf8.h"

namespace scrivanta {

namespace {

constexpr auto kKnownNames = std::to_array<std::string_view>(
    {"ADR",   "AGENT",  "ANNIVERSARY", "BDAY",   "BEGIN",   "CALADRURI",   "CALURI",   "CATEGORIES", "CLASS",
     "EMAIL", "END",    "FBURL",       "FN",     "GENDER",  "GEO",         "IMPP",     "KEY",        "KIND",
     "LABEL", "LANG",   "LOGO",        "MAILER", "MEMBER",  "N",           "NICKNAME", "NOTE",       "ORG",
     "PHOTO", "PRODID", "RELATED",     "REV",    "ROLE",    "SORT-STRING", "SOUND",    "SOURCE",     "TEL",
     "TITLE", "TZ",     "UID",         "URL",    "VERSION", "XML"});

char Capital(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

// Where the value's colon stands. In 3.0 a colon between quotation marks belongs to a parameter; a mark that is never
// closed is an ordinary character.
std::size_t FindColon(std::string_view line) {
  bool quoted = false;
  for (std::size_t i = 0; i < line.size(); ++i) {
    if (line[i] == '"') {
      quoted = !quoted;
    } else if (line[i] == ':' && !quoted) {
      return i;
    }
  }
  return line.find(':');
}

std::size_t EndOfParameter(std::string_view text) {
  bool quoted = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '"') {
      quoted = !quoted;
    } else if (text[i] == ';' && !quoted) {
      return i;
    }
  }
  return text.size();
}

CardParameter ReadParameter(std::string_view text) {
  const std::size_t equals = text.find('=');
  if (equals == std::string_view::npos) {
    return {"", std::string(WithoutBlanksAround(text))};
  }
  return {InCapitals(WithoutBlanksAround(text.substr(0, equals))),
          std::string(WithoutBlanksAround(text.substr(equals + 1)))};
}

std::optional<CardEncoding> EncodingOf(const CardParameter& parameter) {
  if (!parameter.name.empty() && parameter.name != "ENCODING") {
    return std::nullopt;
  }
  const auto is = [&](std::string_view name) { return EqualIgnoringCase(parameter.value, name); };
  if (is("QUOTED-PRINTABLE")) {
    return CardEncoding::kQuotedPrintable;
  }
  if (is("BASE64") || (is("B") && !parameter.name.empty())) {
    return CardEncoding::kBase64;
  }
  const bool isPlain = !parameter.name.empty() || is("7BIT") || is("8BIT");
  return isPlain ? std::optional(CardEncoding::kPlain) : std::nullopt;
}

bool IsAscii(std::string_view bytes) {
  return CountNonAscii(bytes) == 0;
}

bool IsUtf8(std::string_view bytes) {
  return MeasureUtf8(bytes).bytes == bytes.size();
}

std::optional<std::string> FromGbk(std::string_view bytes) {
  const std::u16string text = Decode(Encoding::kGbk, bytes);
  const bool isText =
      std::ranges::none_of(text, [](char16_t unit) { return unit >= 0xDC80 && unit <= 0xDCFF; }) || IsAscii(bytes);
  std::string utf8 = Encode(Encoding::kUtf8, text);
  return isText && IsUtf8(utf8) ? std::optional(std::move(utf8)) : std::nullopt;
}

std::optional<std::string> ToUtf8(std::string bytes, std::string_view charset) {
  if (IsAscii(bytes)) {
    return bytes;
  }
  const std::string name = InCapitals(charset);
  const bool isGbk = name == "GBK" || name == "GB2312" || name == "GB18030" || name == "CP936" || name == "GB_2312-80";
  if (!isGbk && !name.empty() && name != "UTF-8" && name != "UTF8" && name != "US-ASCII") {
    return std::nullopt;
  }
  // A wrong name is more frequent than GBK that happens to be UTF-8.
  if (!isGbk && IsUtf8(bytes)) {
    return bytes;
  }
  return FromGbk(bytes);
}

// In 2.1 only the semicolon is escaped, and a line break where the value is not encoded.
std::string Unescape(std::string_view text, bool escapes, bool breaks) {
  std::string plain;
  plain.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char next = text[i] == '\\' && i + 1 < text.size() ? text[i + 1] : '\0';
    if (breaks && (next == 'n' || next == 'N')) {
      plain += '\n';
      ++i;
    } else if (next == ';' || (escapes && (next == ',' || next == '\\' || next == ':'))) {
      plain += next;
      ++i;
    } else {
      plain += text[i];
    }
  }
  return plain;
}

// The text of a value, or of a part of it, whose bytes have been decoded.
std::optional<std::string> TextOfBytes(std::string bytes, const CardProperty& property) {
  const std::string* charset = property.Find("CHARSET");
  std::optional<std::string> text = ToUtf8(std::move(bytes), charset == nullptr ? "" : *charset);
  if (text) {
    text = WithLineFeedsOnly(*std::move(text));
    if (text->find('\\') != std::string::npos) {
      const bool isEncoded = property.encoding == CardEncoding::kQuotedPrintable;
      text = Unescape(*text, property.escapes, property.escapes || !isEncoded);
    }
  }
  return text;
}

std::string DecodeBytes(std::string_view value, const CardProperty& property) {
  return property.encoding == CardEncoding::kQuotedPrintable ? DecodeQuotedPrintable(value) : std::string(value);
}

// The places of the semicolons that no backslash stands before.
std::vector<std::string_view> SplitAtSemicolons(std::string_view text, bool escapes) {
  std::vector<std::string_view> parts;
  std::size_t begin = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool escapesNext = text[i] == '\\' && i + 1 < text.size() && (escapes || text[i + 1] == ';');
    if (escapesNext) {
      ++i;
    } else if (text[i] == ';') {
      parts.push_back(text.substr(begin, i - begin));
      begin = i + 1;
    }
  }
  parts.push_back(text.substr(begin));
  return parts;
}

}  // namespace

const std::string* CardProperty::Find(std::string_view parameterName) const {
  const auto found = std::ranges::find(parameters, parameterName, &CardParameter::name);
  return found == parameters.end() ? nullptr : &found->value;
}

std::string CardProperty::HeadWithoutEncoding() const {
  std::string head = group.empty() ? name : group + "." + name;
  for (const CardParameter& parameter : parameters) {
    if (parameter.name != "CHARSET" && !EncodingOf(parameter)) {
      head += ';' + parameter.name + (parameter.name.empty() ? "" : "=") + parameter.value;
    }
  }
  return head;
}

std::optional<CardProperty> ReadPropertyHead(std::string_view line) {
  const std::size_t colon = FindColon(line);
  if (colon == std::string_view::npos || colon == 0) {
    return std::nullopt;
  }
  CardProperty property;
  std::string_view head = line.substr(0, colon);
  const std::size_t endOfName = EndOfParameter(head);
  std::string_view name = WithoutBlanksAround(head.substr(0, endOfName));
  if (const std::size_t dot = name.rfind('.'); dot != std::string_view::npos) {
    property.group = name.substr(0, dot);
    name.remove_prefix(dot + 1);
  }
  property.name = InCapitals(name);
  head.remove_prefix(endOfName);
  while (!head.empty()) {
    head.remove_prefix(1);
    const std::size_t end = EndOfParameter(head);
    property.parameters.push_back(ReadParameter(head.substr(0, end)));
    if (const auto encoding = EncodingOf(property.parameters.back()); encoding && *encoding != CardEncoding::kPlain) {
      property.encoding = *encoding;
    }
    head.remove_prefix(end);
  }
  property.headSize = colon + 1;
  property.value = line.substr(colon + 1);
  return property;
}

bool BeginsKnownProperty(std::string_view line) {
  const std::size_t end = line.find_first_of(":;");
  if (end == std::string_view::npos || FindColon(line) == std::string_view::npos) {
    return false;
  }
  std::string_view name = WithoutBlanksAround(line.substr(0, end));
  name.remove_prefix(name.rfind('.') + 1);
  const std::string capitals = InCapitals(name);
  return capitals.starts_with("X-") || std::ranges::find(kKnownNames, capitals) != kKnownNames.end();
}

std::optional<std::string> TextOf(const CardProperty& property) {
  return TextOfBytes(DecodeBytes(property.value, property), property);
}

std::optional<std::vector<std::string>> PartsOf(const CardProperty& property) {
  // Where semicolons stand in an encoded value, they separate, and an encoded one belongs to its part; where none does,
  // they have been encoded with the rest.
  const bool splitsFirst = property.value.find(';') != std::string::npos;
  const std::string whole = splitsFirst ? property.value : DecodeBytes(property.value, property);
  std::vector<std::string> parts;
  for (const std::string_view part : SplitAtSemicolons(whole, property.escapes)) {
    std::optional<std::string> text =
        TextOfBytes(splitsFirst ? DecodeBytes(part, property) : std::string(part), property);
    if (!text) {
      return std::nullopt;
    }
    parts.push_back(std::move(*text));
  }
  return parts;
}

std::string InCapitals(std::string_view text) {
  std::string capitals(text);
  std::ranges::transform(capitals, capitals.begin(), Capital);
  return capitals;
}

bool EqualIgnoringCase(std::string_view a, std::string_view b) {
  return a.size() == b.size() && std::ranges::equal(a, b, {}, Capital, Capital);
}

std::string_view WithoutBlanksAround(std::string_view text) {
  return Trim(text, " \t");
}

}  // namespace scrivanta
