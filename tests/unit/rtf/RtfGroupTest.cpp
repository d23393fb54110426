#include <gtest/gtest.h>

#include "rtf/RtfGroup.h"

namespace scrivanta {
namespace {

using std::string_view_literals::operator""sv;

TEST(RtfGroup, AWholeRichTextIsToldFromOneThatBreaksOff) {
  for (const std::string_view whole : {"{\\rtf1}"sv, "{\\rtf1{\\fonttbl{\\f0 a;}}b\\par}\r\n\0"sv,
                                       "{\\rtf1 \\{\\\\\\}}"sv, "{\\rtf1{\\pict\\bin3 {}}}}"sv}) {
    EXPECT_TRUE(IsWholeRtf(whole)) << whole;
  }
  for (const std::string_view other :
       {""sv, "{\\rtf1"sv, "{\\rtf1{\\fonttbl{\\f0 a;}}before the picture "sv, "{\\rtf1 \\}"sv, "{\\rtf1 a\\"sv,
        "{\\rtf1{\\pict\\bin9 {}}}}"sv, "{\\rtf1}{"sv, "text}"sv, "}{\\rtf1}"sv}) {
    EXPECT_FALSE(IsWholeRtf(other)) << other;
  }
}

TEST(RtfGroup, LineBreaksWithinParagraphsBecomeEndsOfThem) {
  EXPECT_EQ(WithParagraphEnds("{\\rtf1 a\\line b\\line\\b c\\linex0\\\\line{\\line}\\par}"),
            "{\\rtf1 a\\par b\\par\\b c\\linex0\\\\line{\\par}\\par}");
  EXPECT_EQ(WithParagraphEnds("{\\rtf1{\\bin6 \\line }\\line"), "{\\rtf1{\\bin6 \\line }\\par");
}

}  // namespace
}  // namespace scrivanta
