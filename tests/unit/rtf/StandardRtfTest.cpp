#include <string>

#include <gtest/gtest.h>

#include "rtf/StandardRtf.h"

namespace scrivanta {
namespace {

std::u16string NotAsked() {
  ADD_FAILURE() << "the text is read only where the bytes do not tell";
  return {};
}

TEST(StandardRtfTest, EveryCharacterKeepsItsNumber) {
  EXPECT_EQ(StandardRtf("{\\urtf1\\deff0{\\fonttbl{\\f0\\fcharset134 宋体;}}\n\\f0 m² É中\\{😀\\par\n}", &NotAsked),
            "{\\rtf1\\ansi\\ansicpg936\\uc1\\deff0{\\fonttbl{\\f0\\fcharset134 \\'cb\\'ce\\'cc\\'e5;}}\n"
            "\\f0 m\\u178? \\u201?\\u20013?\\{\\u-10179?\\u-8704?\\par\n}");
}

TEST(StandardRtfTest, NamesOfFontsThatTheCodePageLacksAreWrittenByNumber) {
  EXPECT_EQ(StandardRtf("{\\urtf{\\fonttbl{\\f0 É\\};}{\\f1 體;}}é", &NotAsked),
            "{\\rtf1\\ansi\\ansicpg936\\uc1{\\fonttbl{\\f0 \\u201?\\};}{\\f1 \\'f3\\'77;}}\\u233?");
}

// Undecodable bytes of a file stand in its text as halves of pairs; a control makes U+FFFD of them in UTF-8. It may
// write a whole pair as two of them, too, where a line is wrapped between its halves.
TEST(StandardRtfTest, HalvesOfPairsComeFromTheText) {
  const std::u16string text =
      u"a\xDC81\xFFFD😀\xD83D\xDE00"
      u"b";
  EXPECT_EQ(StandardRtf("{\\urtf a\uFFFD\uFFFD😀\\b0 \uFFFD\uFFFD b}", [&] { return text; }),
            "{\\rtf1\\ansi\\ansicpg936\\uc1 a\\u-9087?\\u-3?\\u-10179?\\u-8704?\\b0 \\u-10179?\\u-8704? b}");
}

// As a control writes them that knows its tables by the definition of each row, and puts a cell's text behind its
// number.
TEST(StandardRtfTest, CellsAreSaidToBeInTheirTable) {
  const std::string_view rtf =
      "{\\urtf a\\par\n\\trowd\\trgaph10\\cellx2000\\cellx4000one\\cell 1\\cell \\row\n"
      "\\trowd\\cellx2000\\cellx400042\\b 4\\cell \\pard\\intbl\\qc x\\par\ny\\cell \\row\n"
      "\\trowd\\cellx4000\\b 0\\cell \\row\n\\trowd\\cellx40007 z\\cell \\row\n\\trowd\\cellx4000 z\\tab 4\\cell "
      "\\row\n"
      "\\trowd\\cellx4000\\cell \\row\n\\pard b\\par\n}";
  const std::u16string text =
      u"a\r\r\none\t1\t\r\n\r\n424\tx\ry\t\r\n\r\n0\t\r\n\r\n7 z\t\r\n\r\n z\t4\t\r\n\r\n\t\r\nb";
  EXPECT_EQ(StandardRtf(rtf, [&] { return text; }),
            "{\\rtf1\\ansi\\ansicpg936\\uc1 a\\par\n"
            "\\trowd\\trgaph10\\cellx2000\\cellx4000\\intbl one\\cell 1\\cell \\row\n"
            "\\trowd\\cellx2000\\cellx4000\\intbl 42\\b 4\\cell \\pard\\intbl\\qc x\\par\ny\\cell \\row\n"
            "\\trowd\\cellx4000\\intbl \\b 0\\cell \\row\n\\trowd\\cellx4000\\intbl 7 z\\cell \\row\n"
            "\\trowd\\cellx4000\\intbl  z\\tab 4\\cell \\row\n"
            "\\trowd\\cellx4000\\intbl \\cell \\row\n\\pard b\\par\n}");
}

// The control under Wine puts where the first line begins behind \\fi, and how much farther the others do behind \\li.
TEST(StandardRtfTest, IndentsAreThoseOfTheLines) {
  const std::string_view paragraphs =
      "\\pard\\fi400 all\\par\n\\pard\\li-300\\fi300\\b 1 first\\par\n\\pard\\li200 -\\par\n\\pard no\\par\n}";
  const std::string wine = "{\\urtf{\\*\\generator Wine Riched20 2.0;}" + std::string(paragraphs);
  EXPECT_EQ(StandardRtf(wine, &NotAsked),
            "{\\rtf1\\ansi\\ansicpg936\\uc1{\\*\\generator Wine Riched20 2.0;}\\pard\\li400\\fi0 all\\par\n"
            "\\pard\\li0\\fi300\\b 1 first\\par\n\\pard\\li200\\fi-200 -\\par\n\\pard no\\par\n}");
  EXPECT_EQ(StandardRtf("{\\urtf" + std::string(paragraphs), &NotAsked),
            "{\\rtf1\\ansi\\ansicpg936\\uc1" + std::string(paragraphs));
}

TEST(StandardRtfTest, OtherRichTextsComeBackAsTheyAre) {
  for (const char* rtf : {"", "{\\rtf1 \\'d6\\'d0}", "{\\urt", "{\\rtf1 中}"}) {
    EXPECT_EQ(StandardRtf(rtf, &NotAsked), rtf);
  }
  EXPECT_EQ(StandardRtf("{\\urtf", &NotAsked), "{\\rtf1\\ansi\\ansicpg936\\uc1");
  EXPECT_EQ(StandardRtf("{\\urtf1{\\fonttbl{", &NotAsked), "{\\rtf1\\ansi\\ansicpg936\\uc1{\\fonttbl{");
}

}  // namespace
}  // namespace scrivanta
