// The calendar on the console.
#include <algorithm>

#include <gtest/gtest.h>

#include "support/BatchRun.h"
#include "text/Encoding.h"

namespace scrivanta {
namespace {

using testing::BatchResult;
using testing::RunBatchOn;

BatchResult Lunar(std::vector<std::string> arguments) {
  arguments.insert(arguments.begin(), "lunar");
  return RunBatchOn("", arguments);
}

TEST(CalendarCommands, WriteADayAMonthAndAYear) {
  const std::string day = Encode(Encoding::kGbk, u"2033-12-22\t2033年闰十一月初一\t癸丑年 甲子月 丁未日\t\r\n");
  EXPECT_EQ(Lunar({"2033-12-22"}).output, day);
  EXPECT_EQ(Lunar({"--from-lunar", "2033-闰11-1"}).output, day);
  EXPECT_EQ(Lunar({"2026-06-19", "--encoding", "utf-8"}).output,
            "2026-06-19\t2026年五月初五\t丙午年 甲午月 甲子日\t端午节\r\n");
  const std::string months = Lunar({"--months", "2033"}).output;
  EXPECT_TRUE(months.starts_with("2033-01-31\t1\t29\r\n2033-03-01\t2\t30\r\n"));
  EXPECT_TRUE(months.ends_with("2033-11-22\t11\t30\r\n2033-12-22\tL11\t29\r\n2034-01-20\t12\t30\r\n"));
  const std::string year = Lunar({"--year", "2032"}).output;
  EXPECT_EQ(std::ranges::count(year, '\n'), 366);
  EXPECT_TRUE(year.starts_with("2032-01-01\t"));
}

TEST(CalendarCommands, RefuseWhatIsNoDay) {
  for (const std::vector<std::string>& arguments :
       std::vector<std::vector<std::string>>{{},
                                             {"2033-02-29"},
                                             {"2101-01-01"},
                                             {"--from-lunar", "2033-闰10-1"},
                                             {"--year", "1899"},
                                             {"--months", "x"},
                                             {"2033-12-22", "--year", "2033"}}) {
    const BatchResult result = Lunar(arguments);
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(std::ranges::count(result.errors, '\n'), 1);
  }
}

}  // namespace
}  // namespace scrivanta
