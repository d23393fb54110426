#include <gtest/gtest.h>

#include "text/Hexadecimal.h"

namespace scrivanta::testing {
namespace {

TEST(Hexadecimal, TakesDigitsAndNothingElse) {
  EXPECT_EQ(ParseHexadecimal(u"0aF9"), 0xAF9U);
  EXPECT_EQ(ParseHexadecimal(u"fFfFfFfF"), 0xFFFFFFFFU);
  for (const char16_t* text :
       {u"", u"100000000", u"1g", u" 1", u"-1", u"0x1", u"\u4E31"}) {  // the last ends in '1' as a byte
    EXPECT_EQ(ParseHexadecimal(text), std::nullopt);
  }
}

}  // namespace
}  // namespace scrivanta::testing
