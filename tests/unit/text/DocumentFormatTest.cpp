#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "text/DocumentFormat.h"
#include "text/Encoding.h"

namespace scrivanta {
namespace {

using E = DocumentEncoding;
using L = DocumentLineEnds;
using std::string_view_literals::operator""sv;

struct Case {
  std::string_view bytes;
  std::u16string_view text;
  DocumentFormat format;
};

void Check(const Case& c) {
  const DecodedDocument document = DecodeDocument(c.bytes);
  EXPECT_EQ(document.text, c.text);
  EXPECT_EQ(document.format.encoding, c.format.encoding);
  EXPECT_EQ(document.format.lineEnds, c.format.lineEnds);
  EXPECT_EQ(document.format.isBinary, c.format.isBinary);
  EXPECT_EQ(document.format.exceedsCodePage, c.format.exceedsCodePage);
  EXPECT_EQ(document.format.endsInHalfUnit, c.format.endsInHalfUnit);
  EXPECT_EQ(EncodeDocument(document.text, document.format), c.bytes);
}

TEST(DocumentFormat, RecognisesTheEncodingAndBringsTheBytesBack) {
  const Case cases[] = {
      {"", u"", {}},
      {"ascii only\r\n", u"ascii only\r\n", {}},
      {"\xBA\xBA\xD7\xD6\r\n", u"汉字\r\n", {}},
      {"\xC1\xAA\xCD\xA8", u"联通", {}},  // also UTF-8, but of two bytes a character
      {"\xBA\xBA\x81\x30\x84\x36", u"汉\u00A5", {.exceedsCodePage = true}},
      {"\xBA\xBA\xD7", u"汉\xDCD7", {}},
      {"\xE6\xB1\x89 ascii", u"汉 ascii", {.encoding = E::kUtf8}},
      {"caf\xC3\xA9 \xE2\x82\xAC", u"café €", {.encoding = E::kUtf8}},
      {"\xF0\x9F\x98\x80", u"😀", {.encoding = E::kUtf8}},
      {"\xE6\xB1\x89\xFF\xBA\xBA", u"\u59F9\xDC89\xDCFF汉", {}},
      {"\xEF\xBB\xBF", u"", {.encoding = E::kUtf8WithMark}},
      {"\xEF\xBB\xBFplain", u"plain", {.encoding = E::kUtf8WithMark}},
      {"\xEF\xBB\xBF\xEF\xBB\xBF\xFF", u"\xFEFF\xDCFF", {.encoding = E::kUtf8WithMark}},
      {"\xFF\xFE", u"", {.encoding = E::kUtf16Le}},
      {"\xFF\xFE\x49\x6C\r\0\n\0"sv, u"汉\r\n", {.encoding = E::kUtf16Le}},
      {"\xFE\xFF\x6C\x49\0\r\0\n"sv, u"汉\r\n", {.encoding = E::kUtf16Be}},
      {"\xFF\xFE\x00\xD8\x3D\xD8\x00\xDE"sv, u"\xD800\xD83D\xDE00", {.encoding = E::kUtf16Le}},
      {"\xFF\xFE\x49\x6C\x61", u"汉\xDC61", {.encoding = E::kUtf16Le, .endsInHalfUnit = true}},
      {"\xFE\xFF\xD8\x3D\xFF", u"\xD83D\xDCFF", {.encoding = E::kUtf16Be, .endsInHalfUnit = true}},
      {"\xFF\xFE\x61\xDC", u"\xDC61", {.encoding = E::kUtf16Le}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::PrintToString(c.bytes));
    Check(c);
  }
}

TEST(DocumentFormat, ForgivesACutOffEndOfUtf8OnlyBehindMuchText) {
  const std::string characters =
      "\xE6\xB1\x89\xE6\xB1\x89\xE6\xB1\x89\xE6\xB1\x89\xE6\xB1\x89\xE6\xB1\x89\xE6\xB1\x89\xE6\xB1\x89";
  Check({characters + "\xE5\xAD", u"汉汉汉汉汉汉汉汉\xDCE5\xDCAD", {.encoding = E::kUtf8}});
  EXPECT_EQ(DecodeDocument(characters + "\xE5\xAD!").format.encoding, E::kGbk);
  EXPECT_EQ(DecodeDocument(characters.substr(3) + "\xE5").format.encoding, E::kGbk);
}

TEST(DocumentFormat, KeepsLineEnds) {
  const Case cases[] = {
      {"a\r\n\r\nb", u"a\r\n\r\nb", {}},
      {"a\n\nb\n", u"a\r\n\r\nb\r\n", {.lineEnds = L::kLf}},
      {"\n", u"\r\n", {.lineEnds = L::kLf}},
      {"a\r\rb\r", u"a\r\n\r\nb\r\n", {.lineEnds = L::kCr}},
      {"\xE6\xB1\x89\nb", u"汉\r\nb", {.encoding = E::kUtf8, .lineEnds = L::kLf}},
      {"\xFE\xFF\0a\0\n\0b"sv, u"a\r\nb", {.encoding = E::kUtf16Be, .lineEnds = L::kLf}},
      {"\xFF\xFE\r\0a"sv, u"\r\n\xDC61", {.encoding = E::kUtf16Le, .lineEnds = L::kCr, .endsInHalfUnit = true}},
      {"\xFF\xFE\x0A\x0D\x0D\x0A", u"\u0D0A\u0A0D", {.encoding = E::kUtf16Le}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::PrintToString(c.bytes));
    Check(c);
  }
}

TEST(DocumentFormat, SavesMixedLineEndsAsCrLf) {
  for (const std::string_view bytes : {"a\nb\r\nc\r\nd", "a\rb\nc\r\nd", "a\r\nb\rc\nd"}) {
    const DecodedDocument document = DecodeDocument(bytes);
    EXPECT_EQ(document.format.lineEnds, L::kMixed);
    EXPECT_EQ(document.text, u"a\r\nb\r\nc\r\nd");
    EXPECT_EQ(EncodeDocument(document.text, document.format), "a\r\nb\r\nc\r\nd");
  }
  EXPECT_EQ(DecodeDocument("\r\r\n\n").text, u"\r\n\r\n\r\n");
}

TEST(DocumentFormat, TellsBinaryFilesAndLeavesThemAlone) {
  std::string noise;
  for (int i = 0; i < 3000; ++i) {
    noise += static_cast<char>(1 + (i * i * 7 + i / 3) % 255);
  }
  const std::string nuls(100'000, '\0');
  const std::string_view binary[] = {nuls, noise, "text\0\n\r\nmore"sv, "\xFF\xFE\0\0\n\0"sv};
  for (const std::string_view bytes : binary) {
    const DecodedDocument document = DecodeDocument(bytes);
    EXPECT_TRUE(document.format.isBinary);
    EXPECT_EQ(EncodeDocument(document.text, document.format), bytes);
  }
  // Half a character, a page break, another country's letters: strange, but text.
  for (const std::string_view bytes : {"\xBA"sv, "\f\x1A"sv,
                                       "d\xE9j\xE0 vu, pass\xE9 compos\xE9, Qu\xE9"
                                       "bec"sv}) {
    EXPECT_FALSE(DecodeDocument(bytes).format.isBinary);
  }
}

TEST(DocumentFormat, WritesNoUtf8ThatWouldBeReadAsGbk) {
  const DocumentFormat utf8 = {.encoding = E::kUtf8};
  EXPECT_EQ(EncodeDocument(u"ascii", utf8), "ascii");
  EXPECT_EQ(EncodeDocument(u"汉", utf8), "\xE6\xB1\x89");
  for (const std::u16string_view text : {u"caf\u00E9", u"汉\xD800", u"汉\xDCFF字"}) {
    const std::string bytes = EncodeDocument(text, utf8);
    EXPECT_TRUE(bytes.starts_with("\xEF\xBB\xBF"));
    EXPECT_EQ(DecodeDocument(bytes).text, text);
  }
}

TEST(DocumentFormat, AsksAboutWhatTheCodePageLacksOnce) {
  EXPECT_FALSE(NeedsEncodingQuestion(u"汉字", {}));
  EXPECT_TRUE(NeedsEncodingQuestion(u"汉字😀", {}));
  EXPECT_FALSE(NeedsEncodingQuestion(u"汉字😀", {.exceedsCodePage = true}));
  EXPECT_FALSE(NeedsEncodingQuestion(u"汉字😀", {.encoding = E::kUtf8}));
}

TEST(DocumentFormat, AsksAboutGbkThatWouldBeReadAsAnotherEncoding) {
  EXPECT_TRUE(NeedsEncodingQuestion(u"锟斤拷", {}));
  EXPECT_TRUE(NeedsEncodingQuestion(u"\x951F\x65A4\x62F7", {.exceedsCodePage = true}));
  EXPECT_TRUE(NeedsEncodingQuestion(u"锘縜", {}));  // begins with the mark of UTF-8
  EXPECT_FALSE(NeedsEncodingQuestion(u"锟斤拷", {.encoding = E::kUtf8}));
  EXPECT_FALSE(NeedsEncodingQuestion(u"锟斤拷汉字", {}));
  EXPECT_FALSE(NeedsEncodingQuestion(u"联通", {}));
}

}  // namespace
}  // namespace scrivanta
