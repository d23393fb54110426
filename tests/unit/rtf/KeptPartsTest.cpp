#include <gtest/gtest.h>

#include "rtf/KeptParts.h"
#include "rtf/RtfGroup.h"
#include "rtf/RtfText.h"

namespace scrivanta {
namespace {

// As another program writes them: a picture in two forms, an embedded object, a link, a footnote, a comment.
constexpr std::string_view kDocument =
    "{\\rtf1\\ansi\\deff3{\\fonttbl{\\f0\\froman Times;}{\\f3\\fnil\\fcharset134 Song;}}"
    "{\\colortbl;\\red0\\green0\\blue0;\\red255\\green0\\blue0;}\n"
    "{\\stylesheet{\\s0\\f3 Normal;}}{\\*\\generator Other;}{\\info{\\title T}}\\paperw11906\\deftab709\n"
    "\\sectd{\\header\\pard\\f3\\cf2 head\\par}\\pard\\plain \\f3 one"
    "{\\*\\shppict{\\pict\\pngblip 89}}\n{\\nonshppict{\\pict\\wmetafile8 01}}two"
    "{\\object\\objemb{\\*\\objdata 00}{\\result{\\pict\\wmetafile8 02}}}\\par "
    "{{\\field{\\*\\fldinst HYPERLINK \"http://example.com\" }{\\fldrslt {\\cf2\\ul link}{}}}x}"
    "{{\\super \\chftn{\\*\\footnote \\chftn\\pard\\f0 note}}}"
    "{\n{\\*\\atnid 1}{\\*\\atnauthor A}\\chatn{\\*\\annotation{\\*\\atndate 0}said}}\\page end\\par}";

// As an edit control writes the same text, with fonts and colours of its own.
std::string AsControl(std::string_view body) {
  return "{\\rtf1\\ansi\\ansicpg936\\uc1\\deff0{\\fonttbl{\\f0\\fcharset134 "
         "Song;}}{\\colortbl;\\red1\\green2\\blue3;}\\pard " +
         std::string(body) + "}";
}

std::string Sign(int number) {
  return "\\u" + std::to_string(0xE900 + number - 0x10000) + "?";
}

class KeptPartsTest : public testing::Test {
 protected:
  KeptParts parts;
};

TEST_F(KeptPartsTest, SignsStandForWhatAControlDoesNotHold) {
  const std::string taken = parts.TakeOutDocument(kDocument);
  EXPECT_TRUE(IsWholeRtf(taken)) << taken;
  EXPECT_EQ(RtfText(taken).text(),
            u"one\xE900two\xE901\r\n\xE903link\xE902x\xE904\xE905\xE906"
            u"end");
  for (const char* gone : {"pict", "object", "field", "footnote", "annotation", "header", "stylesheet", "title"}) {
    EXPECT_EQ(taken.find(gone), std::string::npos) << gone;
  }
  EXPECT_NE(taken.find("{\\cf2\\ul link}"), std::string::npos);
  EXPECT_EQ(parts.WithoutSigns(RtfText(taken).text()), u"onetwo\r\nlinkxend");
  EXPECT_TRUE(parts.HasSigns(u"a\xE900"));
  EXPECT_FALSE(parts.HasSigns(u"a\xE909"));
}

TEST_F(KeptPartsTest, PartsComeBackWithTheirFontsAndColours) {
  parts.TakeOutDocument(kDocument);
  const std::string body = "one" + Sign(0) + "2\\b" + Sign(4) + "x\\par\n" + Sign(6) + "y" + Sign(5);
  EXPECT_EQ(parts.PutBackDocument(AsControl(body)),
            "{\\rtf1\\ansi\\ansicpg936\\uc1\\deff0{\\fonttbl{\\f0\\fcharset134 Song;}"
            "{\\f1 \\fnil\\fcharset134 Song;}{\\f2 \\froman Times;}}"
            "{\\colortbl;\\red1\\green2\\blue3;\\red255\\green0\\blue0;}"
            "{\\stylesheet{\\s0\\f1 Normal;}}{\\info{\\title T}}\\paperw11906 \\deftab709 \\sectd "
            "{\\header\\pard\\f1\\cf2 head\\par}"
            "\\pard one{\\*\\shppict{\\pict\\pngblip 89}}{\\nonshppict{\\pict\\wmetafile8 01}}2\\b"
            "\\chftn {\\*\\footnote \\chftn\\pard\\f2 note}x\\par\n\\page y"
            "{\\*\\atnid 1}{\\*\\atnauthor A}\\chatn {\\*\\annotation{\\*\\atndate 0}said}}");
  // A part of the document has no head.
  EXPECT_EQ(parts.PutBack(AsControl("a" + Sign(0))).find("stylesheet"), std::string::npos);
  EXPECT_EQ(parts.PutBack(AsControl("a")), AsControl("a"));
}

// The text of a field changes formats for itself only, but what the control writes behind it counts on them.
TEST_F(KeptPartsTest, AFieldLeavesTheFormatsAsTheControlHasThem) {
  parts.TakeOut(kDocument);
  const std::string open = Sign(3);
  const std::string close = Sign(2);
  const std::string_view begin = "{\\field{\\*\\fldinst HYPERLINK \"http://example.com\" }{\\fldrslt ";
  EXPECT_EQ(parts.PutBack(AsControl("a" + open + "\\ul link\\tab\\b" + close + "c")),
            AsControl("a" + std::string(begin) + "\\ul link\\tab\\b}}\\ul \\b c"));
  // The text stays when an end of the field has gone.
  EXPECT_EQ(parts.PutBack(AsControl("\\b" + open + "link")), AsControl("\\b{}link"));
  EXPECT_EQ(parts.PutBack(AsControl("link" + close + " a" + open)), AsControl("link{} a{}"));
  // Copied: two links.
  const std::string both = parts.PutBack(AsControl(open + "a" + close + open + "b" + close));
  EXPECT_EQ(RtfText(both).text(), u"ab");
  EXPECT_NE(both.find("fldinst", both.find("fldinst") + 1), std::string::npos);
}

TEST_F(KeptPartsTest, WhatIsSavedAndOpenedAgainStaysAsItIs) {
  const std::string_view body = "one\\b two";
  std::string file(kDocument);
  std::string before;
  for (int round = 0; round < 3; ++round) {
    KeptParts fresh;
    const std::u16string text = RtfText(fresh.TakeOutDocument(file)).text();
    before = std::exchange(file, fresh.PutBackDocument(AsControl(std::string(body) + Sign(0) + Sign(4))));
    EXPECT_EQ(text.substr(0, 3), u"one");
  }
  EXPECT_EQ(file, before);
}

TEST_F(KeptPartsTest, CharactersOfTheTextAreNoSigns) {
  parts.LeaveAlone(u"\xE900");
  EXPECT_EQ(RtfText(parts.TakeOut("{\\rtf1\\u-5887?{\\pict 0}}")).text(), u"\xE901\xE902");
  EXPECT_EQ(RtfText(parts.TakeOut("{\\rtf1{\\pict 0}{\\pict 1}{\\pict 0}}")).text(), u"\xE902\xE903\xE902");
  EXPECT_EQ(parts.PutBack(AsControl(Sign(1))), AsControl(Sign(1)));
}

TEST_F(KeptPartsTest, TheCountOfBytesBehindUnicodeGoesWithThePart) {
  const std::string taken = parts.TakeOut("{\\rtf1\\uc2 a{\\footnote \\u20013\\'d6\\'d0}b}");
  EXPECT_EQ(RtfText(taken).text(),
            u"a\xE900"
            u"b");
  EXPECT_EQ(parts.PutBack(AsControl(Sign(0))), AsControl("\\uc2 {\\footnote \\u20013\\'d6\\'d0}\\uc1 "));
}

TEST_F(KeptPartsTest, AFieldWithoutTextIsOnePart) {
  const std::string_view shape =
      "{\\field{\\*\\fldinst SHAPE }{\\fldrslt{\\shp{\\*\\shpinst{\\sp{\\sn pib}{\\sv {\\pict 0}}}}}}}";
  const std::string taken = parts.TakeOut("{\\rtf1 a" + std::string(shape) + "b}");
  EXPECT_EQ(RtfText(taken).text(),
            u"a\xE900"
            u"b");
  EXPECT_EQ(parts.PutBack(AsControl(Sign(0))), AsControl(shape));
}

TEST_F(KeptPartsTest, MorePartsThanSignsAreTold) {
  const auto pictures = [](int count) {
    std::string rtf = "{\\rtf1 ";
    for (int i = 0; i < count; ++i) {
      rtf += "{\\pict " + std::to_string(i) + "}";
    }
    return rtf + "}";
  };
  const std::u16string text = RtfText(parts.TakeOut(pictures(3000))).text();
  EXPECT_EQ(text.size(), 3000U);
  EXPECT_EQ(text.find(u'\xF000'), std::u16string::npos);
  EXPECT_FALSE(parts.ranOut());
  parts.TakeOut(pictures(5000));
  EXPECT_TRUE(parts.ranOut());
}

}  // namespace
}  // namespace scrivanta
