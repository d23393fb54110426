#include "contacts/CardWriter.h"

#include <algorithm>

#include "contacts/QuotedPrintable.h"

namespace scrivanta {

namespace {

constexpr std::string_view kEncodingParameters = ";CHARSET=UTF-8;ENCODING=QUOTED-PRINTABLE:";
constexpr std::string_view kAsciiEncodingParameters = ";ENCODING=QUOTED-PRINTABLE:";

enum class Plain { kAscii, kUtf8 };

bool IsControl(char c) {
  return static_cast<unsigned char>(c) < 0x20 || c == 0x7F;
}

bool IsBeyondAscii(char c) {
  return static_cast<unsigned char>(c) > 0x7F;
}

// Whether the value can stand as it is, with nothing in it that a reader takes for something else.
bool CanBePlain(const std::vector<std::string>& parts, Plain plain) {
  const auto isPlain = [plain](char c) {
    return !IsControl(c) && c != '\\' && (plain == Plain::kUtf8 || !IsBeyondAscii(c));
  };
  const std::string& first = parts.front();
  const std::string& last = parts.back();
  return std::ranges::all_of(parts, [&](const std::string& part) { return std::ranges::all_of(part, isPlain); }) &&
         !first.starts_with(' ') && !last.ends_with(' ') && !last.ends_with('=');
}

std::string WithEscapedSemicolons(std::string_view text) {
  std::string escaped;
  for (const char c : text) {
    escaped += c == ';' ? "\\;" : std::string(1, c);
  }
  return escaped;
}

std::string PlainValue(const std::vector<std::string>& parts) {
  std::string value;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    value += (i == 0 ? "" : ";") + WithEscapedSemicolons(parts[i]);
  }
  return value;
}

std::string EncodedValue(const std::vector<std::string>& parts) {
  std::string value;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    value += i == 0 ? "" : ";";
    for (const char c : parts[i]) {
      EncodeQuotedPrintableAppend(c == '\n' ? "\r\n" : c == ';' ? "\\;" : std::string_view(&c, 1), value);
    }
  }
  return value;
}

std::string EncodedHead(const std::string& head, const std::vector<std::string>& parts) {
  const bool isAscii =
      std::ranges::none_of(parts, [](const std::string& part) { return std::ranges::any_of(part, IsBeyondAscii); });
  return head + std::string(isAscii ? kAsciiEncodingParameters : kEncodingParameters);
}

}  // namespace

std::string ReadableProperty(const std::string& head, const std::vector<std::string>& parts) {
  return CanBePlain(parts, Plain::kUtf8) ? head + ':' + PlainValue(parts)
                                         : EncodedHead(head, parts) + EncodedValue(parts);
}

void CardWriter::Begin() {
  out_.WriteLine("BEGIN:VCARD");
  out_.WriteLine("VERSION:2.1");
}

void CardWriter::End() {
  out_.WriteLine("END:VCARD");
}

void CardWriter::WriteText(const std::string& head, const std::vector<std::string>& parts) {
  if (CanBePlain(parts, Plain::kAscii)) {
    out_.WriteLine(head + ':' + PlainValue(parts));
    return;
  }
  const std::string encodedHead = EncodedHead(head, parts);
  out_.WriteLine(encodedHead + FoldQuotedPrintable(EncodedValue(parts), encodedHead.size()));
}

void CardWriter::WriteAsItStood(const CardProperty& property) {
  const std::string_view raw = property.raw;
  if (property.encoding == CardEncoding::kQuotedPrintable && raw.find('\n') != std::string_view::npos) {
    const std::string_view head = raw.substr(0, property.headSize);
    out_.WriteLine(std::string(head) + FoldQuotedPrintable(property.value, head.size()));
    return;
  }
  for (std::size_t begin = 0; begin <= raw.size();) {
    const std::size_t end = std::min(raw.find('\n', begin), raw.size());
    out_.WriteLine(raw.substr(begin, end - begin));
    begin = end + 1;
  }
  if (property.encoding == CardEncoding::kBase64) {
    out_.WriteLine("");
  }
}

}  // namespace scrivanta
