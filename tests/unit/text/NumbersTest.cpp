#include <limits>
#include <string_view>

#include <gtest/gtest.h>

#include "text/Numbers.h"

namespace scrivanta {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(LeadingNumber, ReadsAsFarAsANumberGoes) {
  struct Case {
    std::u16string_view text;
    double number;
  };
  const Case cases[] = {
      {u"", 0},
      {u"abc", 0},
      {u"行12", 0},
      {u"12行", 12},
      {u"007", 7},
      {u"-5", -5},
      {u"+5", 5},
      {u"--5", 0},
      {u"- 5", -5},
      {u" 1 2\t3 ", 123},
      {u"1.5.7", 1.5},
      {u".5", 0.5},
      {u"-.5x", -0.5},
      {u".", 0},
      {u"1.", 1},
      {u"1,5", 1},
      {u"1e3", 1000},
      {u"1d3", 1000},
      {u"1E-2", 0.01},
      {u"1D+2", 100},
      {u"1e", 1},
      {u"1e+", 1},
      {u"2ex", 2},
      {u"1e 3", 1000},
      {u"1e1.5", 10},
      {u"e3", 0},
      {u"0x10", 0},
      {u"１２", 0},
      {u"12\r\n", 12},
      {u"0e999999999999999999", 0},
      {u"0.1", 0.1},
      {u"1e308", 1e308},
      {u"5e-324", 5e-324},
      {u"1e-400", 0},
      {u"1e400", kInfinity},
      {u"-1e400", -kInfinity},
      {u"1e99999999999999999999999", kInfinity},
      {u"123456789012345678901234567890", 123456789012345678901234567890.0},
      {std::u16string_view(u"1\0"
                           u"2",
                           3),
       1},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(LeadingNumber(c.text), c.number) << testing::PrintToString(c.text);
  }
  EXPECT_EQ(LeadingNumber(u"0." + std::u16string(1000, u'0') + u"1e1001"), 1);
}

TEST(LeadingWholeNumber, RoundsHalvesToEvenAndStaysInRange) {
  struct Case {
    std::u16string_view text;
    long long number;
  };
  constexpr long long kMost = std::numeric_limits<long long>::max();
  constexpr long long kLeast = std::numeric_limits<long long>::min();
  const Case cases[] = {
      {u"0.5", 0},
      {u"1.5", 2},
      {u"2.5", 2},
      {u"-0.5", 0},
      {u"-1.5", -2},
      {u"2.51", 3},
      {u"9e18", 9'000'000'000'000'000'000},
      {u"1e19", kMost},
      {u"-1e19", kLeast},
      {u"1e999", kMost},
      {u"-1e999", kLeast},
      {u"9223372036854775807", kMost},
      {u"-9223372036854775808", kLeast},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(LeadingWholeNumber(c.text), c.number) << testing::PrintToString(c.text);
  }
}

}  // namespace
}  // namespace scrivanta
