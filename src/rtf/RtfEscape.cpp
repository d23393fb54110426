#include "rtf/RtfEscape.h"

#include "rtf/RtfHeader.h"
#include "text/Encoding.h"

namespace scrivanta {

namespace {

constexpr char16_t kFirstBeyondAscii = 0x80;

void AppendHexByte(std::string& out, unsigned char byte) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  out += "\\'";
  out += kDigits[byte >> 4U];
  out += kDigits[byte & 15U];
}

// The number counts as signed 16-bit.
void AppendUnicode(std::string& out, char16_t c, std::size_t skipped) {
  out += "\\u";
  out += std::to_string(c < 0x8000 ? static_cast<int>(c) : static_cast<int>(c) - 0x10000);
  if (skipped == 0) {
    out += ' ';
  } else {
    out.append(skipped, '?');
  }
}

}  // namespace

std::u16string RtfEscapeText(std::u16string_view text) {
  std::u16string escaped;
  escaped.reserve(text.size() + text.size() / 8);
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char16_t c = text[i];
    if (c == u'\r' || c == u'\n') {
      if (c == u'\r' && text.substr(i + 1, 1) == u"\n") {
        ++i;
      }
      escaped += u"\\line ";
      continue;
    }
    if (c == u'\\' || c == u'{' || c == u'}') {
      escaped += u'\\';
    }
    escaped += c;
  }
  return escaped;
}

std::string RtfHexEscape(std::u16string_view text) {
  return RtfHexEscape(text, true, 1);
}

std::string RtfHexEscape(std::u16string_view text, bool isChineseCharset, std::size_t skippedAfterUnicode) {
  std::string escaped;
  escaped.reserve(text.size() * 2);
  std::string bytes;
  for (const char16_t c : text) {
    if (c < kFirstBeyondAscii) {
      escaped += static_cast<char>(c);
      continue;
    }
    bytes.clear();
    EncodeAppend(Encoding::kGbk, {&c, 1}, bytes);
    if (isChineseCharset && bytes.size() == 2) {
      AppendHexByte(escaped, static_cast<unsigned char>(bytes[0]));
      AppendHexByte(escaped, static_cast<unsigned char>(bytes[1]));
    } else {
      AppendUnicode(escaped, c, skippedAfterUnicode);
    }
  }
  return escaped;
}

std::string RtfDocumentFromText(std::u16string_view text) {
  std::string document(kRtfHeader);
  document.reserve(document.size() + text.size() * 2);
  const bool endsLine = text.ends_with(u"\r\n");
  for (;;) {
    const std::size_t end = text.find(u"\r\n");
    document += RtfHexEscape(RtfEscapeText(text.substr(0, end)));
    if (end == std::u16string_view::npos) {
      break;
    }
    document += "\\par ";
    text.remove_prefix(end + 2);
  }
  // The very last paragraph end is taken for that of the document.
  return document + (endsLine ? "\\par }" : "}");
}

}  // namespace scrivanta
