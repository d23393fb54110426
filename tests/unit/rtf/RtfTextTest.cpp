#include <random>

#include <gtest/gtest.h>

#include "rtf/RtfEscape.h"
#include "rtf/RtfText.h"
#include "text/LiteralFinder.h"

namespace scrivanta {
namespace {

TEST(RtfEscape, EscapesSignsAndLineBreaks) {
  EXPECT_EQ(RtfEscapeText(u"a\\{b}\r\nc\nd\re"), u"a\\\\\\{b\\}\\line c\\line d\\line e");
  EXPECT_EQ(RtfEscapeText(u""), u"");
}

TEST(RtfEscape, EscapesWhatIsNotAscii) {
  EXPECT_EQ(RtfHexEscape(u"a中é宋\t"), "a\\'d6\\'d0\\'a8\\'a6\\'cb\\'ce\t");
  // Outside the code page, beyond the first plane, a byte that was no text, the one-byte sign.
  EXPECT_EQ(RtfHexEscape(u"\xE5"), "\\u229?");
  EXPECT_EQ(RtfHexEscape(u"\xD83D\xDE00"), "\\u-10179?\\u-8704?");
  EXPECT_EQ(RtfHexEscape(u"\xDC80"), "\\u-9088?");
  EXPECT_EQ(RtfHexEscape(u"€"), "\\u8364?");
  EXPECT_EQ(RtfHexEscape(u"中", false, 0), "\\u20013 ");
}

TEST(RtfEscape, WrapsATextIntoADocument) {
  const std::string document = RtfDocumentFromText(u"a\r\n中{");
  EXPECT_EQ(document,
            "{\\rtf1\\ansi\\ansicpg936\\deff0\\deflang1033\\deflangfe2052{\\fonttbl{\\f0\\fnil\\fcharset134 "
            "\\'cb\\'ce\\'cc\\'e5;}{\\f1\\froman\\fcharset2 Symbol;}{\\f2\\fnil\\fcharset134 Arial;}}{\\colortbl "
            ";\\red0\\green0\\blue0;\\red255\\green0\\blue0;\\red0\\green0\\blue255;\\red255\\green128\\blue0;}"
            "\\viewkind4\\uc1\\pard\\cf1\\lang2052\\f0\\fs21 a\\par \\'d6\\'d0\\{}");
  EXPECT_EQ(RtfText(document).text(), u"a\r\n中{");
}

// As the control writes it: two fonts, colours, bold, a picture, a table, a field.
constexpr std::string_view kFormatted =
    "{\\rtf1\\ansi\\ansicpg936\\deff0{\\fonttbl{\\f0\\fnil\\fcharset134 \\'cb\\'ce\\'cc\\'e5;}"
    "{\\f1\\fnil\\fcharset0 Red Font;}}\r\n"
    "{\\colortbl ;\\red255\\green0\\blue0;}\r\n"
    "{\\*\\generator par 6.2;}{\\stylesheet{\\s0 red par;}}\\viewkind4\\uc1 \r\n"
    "\\pard\\cf1\\b\\f0\\fs21\\'d6\\'d0\\'ce\\'c4\\b0 red\\f1 par\\f0 b0'f\\\\b\\{\\}\\par\r\n"
    "{\\pict\\wmetafile8 0100red0900par}\\u229?\\tab r\\b e\\b0 d\\line\\lang2052 x\\par\r\n"
    "{\\field{\\*\\fldinst HYPERLINK \"red\"}{\\fldrslt{\\ul red link}}}\\v hidden red\\v0\\par\r\n"
    "\\trowd\\cellx1000\\intbl one\\cell\\row\\pard last\\par\r\n"
    "}\r\n";

TEST(RtfText, ReadsTheTextOfTheDocument) {
  EXPECT_EQ(RtfText(kFormatted).text(), u"中文redparb0'f\\b{}\r\n\x00E5\tred\vx\r\nred link\r\none\alast");
  struct Case {
    std::string_view rtf;
    std::u16string_view text;
  };
  const Case cases[] = {
      {"", u""},
      {"plain", u""},
      {"{\\rtf1 a", u"a"},
      {"{\\rtf1\\ansicpg936 \\'d6\\'d0 \xD6\xD0 \\'81@\\'81\\'5c \\'80}", u"中 中 丂乗 €"},
      {"{\\rtf1\\ansicpg936{\\fonttbl{\\f0\\fcharset1 A;}{\\f1\\fcharset0 B;}}\\f0\\'d6\\'d0\\f1\\'e9}", u"中\x00E9"},
      {"{\\rtf1\\ansicpg936 \\'d6{\\'d0}\\'ff\\'d6\\'20}", u"\xFFFF\xFFFF\xFFFF\xFFFF"},
      {"{\\rtf1\\ansicpg1252 \\'e9\\'80\\'81}", u"é€\xFFFF"},
      {"{\\rtf1\\ansicpg1251 \\'e9}", u"\xFFFF"},
      {"{\\rtf1\\uc2\\u20013\\'d6\\'d0\\u-10179 ??\\uc0\\u-8704 x}", u"中\xD83D\xDE00x"},
      {"{\\rtf1 a\\u20013}b", u"a中b"},
      {"{\\rtf1 a\\bin5 {}\\}xb}", u"ab"},
      {"{\\rtf1 a\\~b\\_c\\-d\\emdash e\\\ne}",
       u"a\xA0"
       u"b\x2011"
       u"cd\x2014"
       u"e\r\ne"},
      {"{\\rtf1 {\\*\\unknown {deep}}a{\\b {b}}\\par\\par}", u"ab\r\n"},
      {"{\\rtf1 a\\par}\r\n\0", u"a"},
      {"{\\rtf1\\ansicpg936 a\\", u"a"},
      {"{\\rtf1}}}}a", u"a"},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(RtfText(c.rtf).text(), c.text) << c.rtf;
  }
}

RtfText::Outcome ReplaceAll(std::string_view rtf, std::u16string_view find, std::u16string_view replacement) {
  const RtfText text(rtf);
  const LiteralFinder finder(find, false);
  NoProgress progress;
  std::vector<RtfText::Replacement> replacements;
  for (std::size_t at = finder.Find(text.text(), 0, progress); at != LiteralFinder::kNotFound;
       at = finder.Find(text.text(), at + find.size(), progress)) {
    replacements.push_back({at, find.size(), std::u16string(replacement)});
  }
  return text.Replace(replacements);
}

std::string With(std::string_view rtf, std::string_view from, std::string_view to) {
  std::string result(rtf);
  result.replace(result.find(from), from.size(), to);
  return result;
}

TEST(RtfText, ReplacesInTheTextAloneAndLeavesEveryOtherByte) {
  struct Case {
    std::u16string find;
    std::u16string replacement;
    std::string from;  // a stretch of kFormatted
    std::string to;
    std::size_t replaced;
    std::size_t split;
  };
  const Case cases[] = {
      {u"par", u"x", "\\f1 par", "\\f1 x", 1, 0},
      {u"b0", u"x", "\\f0 b0", "\\f0 x", 1, 0},
      {u"0", u"", "b0'", "b'", 1, 0},
      {u"'", u"", "b0'f", "b0f", 1, 0},
      {u"'f\\b", u"}", "'f\\\\b\\{", "\\}\\{", 1, 0},
      {u"lastx", u"", "", "", 0, 0},
      {u"中文", u"汉字", "\\'d6\\'d0\\'ce\\'c4", "\\'ba\\'ba\\'d7\\'d6", 1, 0},
      {u"中", u"abc", "\\fs21\\'d6\\'d0\\'ce", "\\fs21 abc\\'ce", 1, 0},
      {u"中文", u"", "\\fs21\\'d6\\'d0\\'ce\\'c4\\b0", "\\fs21\\b0", 1, 0},
      {u"par", u"中", "\\f1 par", "\\f1 \\u20013?", 1, 0},
      {u"\x00E5", u"5", "}\\u229?\\tab", "}5\\tab", 1, 0},
      {u"\t", u"--", "?\\tab r", "?--r", 1, 0},
      {u"文red", u"", "", "", 0, 1},
      {u"\r\n\x00E5", u"", "", "", 0, 1},
      {u"link\r\n", u"", "", "", 0, 1},
      {u"one", u"a\r\nb", "\\intbl one", "\\intbl a\\par b", 1, 0},
      {u"hidden", u"x", "", "", 0, 0},
  };
  for (const Case& c : cases) {
    const RtfText::Outcome outcome = ReplaceAll(kFormatted, c.find, c.replacement);
    EXPECT_EQ(outcome.rtf, With(kFormatted, c.from, c.to)) << c.from;
    EXPECT_EQ(outcome.replaced, c.replaced) << c.from;
    EXPECT_EQ(outcome.split, c.split) << c.from;
  }
  // Two of them in text, one in three pieces.
  const RtfText::Outcome red = ReplaceAll(kFormatted, u"red", u"blue");
  EXPECT_EQ(red.rtf, With(With(kFormatted, "\\b0 red", "\\b0 blue"), "\\ul red", "\\ul blue"));
  EXPECT_EQ(red.split, 1U);
}

TEST(RtfText, KeepsControlWordsApartFromNewText) {
  EXPECT_EQ(ReplaceAll("{\\rtf1\\b\\'41\\'42x}", u"A", u"").rtf, "{\\rtf1\\b\\'42x}");
  EXPECT_EQ(ReplaceAll("{\\rtf1\\b\\'41x}", u"A", u"").rtf, "{\\rtf1\\b x}");
  EXPECT_EQ(ReplaceAll("{\\rtf1\\li-5\\'41x}", u"A", u"7").rtf, "{\\rtf1\\li-5 7x}");
  EXPECT_EQ(ReplaceAll("{\\rtf1 \\\\b\\'41x}", u"A", u"").rtf, "{\\rtf1 \\\\bx}");
  EXPECT_EQ(ReplaceAll("{\\rtf1\\b,\\'41,x}", u",", u" ").rtf, "{\\rtf1\\b  \\'41 x}");
  EXPECT_EQ(ReplaceAll("{\\rtf1\\uc0\\u229\\'41}", u"A", u"B").rtf, "{\\rtf1\\uc0\\u229 B}");
}

// Documents put together at random: what the text becomes must be what replacing in the text alone gives.
TEST(RtfText, AgreesWithReplacingInPlainText) {
  static constexpr std::string_view kPieces[] = {
      "a",           "b",    "ab ",   "\\b",  "\\b0 ",     "\\'61",  "\\'d6\\'d0",
      "\\u20013?",   "\\\\", "\\{",   "\r\n", "\\par\r\n", "\\tab ", "{\\i a}",
      "{\\pict ab}", "\\f1", "\\f0 ", "1",    "-",         " ",      "\\u97 b",
  };
  static constexpr std::u16string_view kTexts[] = {u"a", u"b", u"ab", u"1", u" ", u"", u"中", u"a中", u"\\", u"\r\n"};
  std::mt19937 random(1);
  NoProgress progress;
  int compared = 0;
  for (int round = 0; round < 5000; ++round) {
    std::string rtf = "{\\rtf1\\ansicpg936{\\fonttbl{\\f0\\fcharset134 x;}{\\f1\\fcharset0 y;}} ";
    for (std::size_t i = random() % 12; i > 0; --i) {
      rtf += kPieces[random() % std::size(kPieces)];
    }
    rtf += "\\par}";
    const std::u16string_view find = kTexts[random() % std::size(kTexts)];
    const std::u16string_view replacement = kTexts[random() % std::size(kTexts)];
    const std::u16string before = RtfText(rtf).text();
    if (find.empty()) {
      EXPECT_EQ(RtfText(rtf).Replace({}).rtf, rtf);
      continue;
    }
    const RtfText::Outcome outcome = ReplaceAll(rtf, find, replacement);
    if (outcome.split > 0) {
      continue;
    }
    std::u16string expected = before;
    const LiteralFinder finder(find, false);
    for (std::size_t at = finder.Find(expected, 0, progress); at != LiteralFinder::kNotFound;
         at = finder.Find(expected, at + replacement.size(), progress)) {
      expected.replace(at, find.size(), replacement);
    }
    ASSERT_EQ(RtfText(outcome.rtf).text(), expected) << rtf << "\n" << outcome.rtf;
    compared += outcome.replaced > 0 ? 1 : 0;
  }
  EXPECT_GT(compared, 1000);
}

}  // namespace
}  // namespace scrivanta
