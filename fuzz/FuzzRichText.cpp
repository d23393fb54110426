#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "fuzz/RunFuzz.h"
#include "rtf/RtfEscape.h"
#include "rtf/RtfText.h"
#include "text/Encoding.h"
#include "text/Surrogates.h"

namespace scrivanta {
namespace {

// What a rich text shows of these bytes taken as text: NULs are no text there, and all line ends are one.
std::u16string TextOf(std::string_view bytes) {
  std::u16string text;
  const std::u16string decoded = Decode(Encoding::kUtf8, bytes);
  for (std::size_t i = 0; i < decoded.size(); ++i) {
    const bool isLineEnd = decoded[i] == u'\r' || decoded[i] == u'\n';
    if (isLineEnd) {
      i += decoded[i] == u'\r' && decoded.substr(i + 1, 1) == u"\n" ? 1 : 0;
      text += u"\r\n";
    } else if (decoded[i] != u'\0') {
      text += decoded[i];
    }
  }
  return text;
}

// A text that was made a rich one reads as before.
void FuzzEscape(std::string_view bytes) {
  const std::u16string text = TextOf(bytes);
  const std::string rtf = RtfDocumentFromText(text);
  EXPECT_TRUE(std::all_of(rtf.begin(), rtf.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; }));
  EXPECT_EQ(RtfText(rtf).text(), text);
}

// In any bytes at all, what is not replaced stays, and what is replaced is read back.
void FuzzReader(std::string_view bytes) {
  const RtfText before(bytes);
  EXPECT_EQ(before.Replace({}).rtf, bytes);
  std::vector<RtfText::Replacement> replacements;
  for (std::size_t at = 0; at < before.text().size(); at += 3) {
    // Half a line break or half a pair is no place by itself.
    const char16_t c = before.text()[at];
    if (c != u'\r' && c != u'\n' && !IsSurrogate(c)) {
      replacements.push_back({at, 1, u"{\u6C49}"});
    }
  }
  const RtfText::Outcome outcome = before.Replace(replacements);
  EXPECT_EQ(outcome.replaced + outcome.split, replacements.size());
  if (outcome.split > 0) {
    return;
  }
  std::u16string expected = before.text();
  for (auto one = replacements.rbegin(); one != replacements.rend(); ++one) {
    expected.replace(one->start, one->length, one->text);
  }
  EXPECT_EQ(RtfText(outcome.rtf).text(), expected);
}

TEST(Fuzz, RichTextEscape) {
  static constexpr std::string_view kInputs[] = {"", "a\\b{c}\r\nd",
                                                 "\xE6\xB1\x89\xE5\xAD\x97 \xC3\xA9\xF0\x9F\x98\x80", "\xFF\x80"};
  static constexpr std::string_view kTokens[] = {"\\",           "{",  "}", "\r\n", "\n", "'", "\\par ",
                                                 "\xE6\xB1\x89", "\t", "-"};
  RunFuzz(FuzzEscape, kInputs, kTokens);
}

TEST(Fuzz, RichTextReader) {
  static constexpr std::string_view kInputs[] = {
      "",
      "{\\rtf1\\ansi\\ansicpg936\\deff0{\\fonttbl{\\f0\\fcharset134 A;}{\\f1\\fcharset0 B;}}{\\colortbl ;\\red255;}"
      "\\uc1 a\\'ba\\'ba{\\b bold}\\par \\f1\\'e9\\u27721?\\line {\\pict 00ff}{\\*\\x y}\\tab\\~\\_z}",
      "{\\rtf1 {\\field{\\*\\fldinst HYPERLINK}{\\fldrslt shown}}\\v hidden\\v0\\bin3 {{{ \\uc2\\u-3913 ab}",
  };
  static constexpr std::string_view kTokens[] = {
      "{",     "}",        "\\",     "\\'",   "\\'d6\\'d0", "\\u",  "\\u20013 ?", "\\uc0 ", "\\uc2 ",
      "\\f1 ", "\\plain ", "\\par ", "\\bin", "\\bin9 ",    "{\\*", "\xBA\xBA",   "\r\n",   "\\cell "};
  RunFuzz(FuzzReader, kInputs, kTokens);
}

}  // namespace
}  // namespace scrivanta
