// Days of the Gregorian and of the lunar calendar, both ways.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "calendar/Day.h"

namespace scrivanta {

// The lunar years that the calendar knows whole; before them it knows the twelfth month of 1899.
inline constexpr int kFirstLunarYear = 1900;
inline constexpr int kLastLunarYear = 2100;

struct LunarMonth {
  int year = 0;
  int number = 0;  // from 1; a leap month has the number of the month before
  bool isLeap = false;
  Day first = {};
  int days = 0;  // 29 or 30
};

struct LunarDate {
  int year = 0;
  int month = 0;
  bool isLeap = false;
  int day = 0;  // from 1

  friend bool operator==(const LunarDate&, const LunarDate&) = default;
};

// The months of a lunar year, the twelve or thirteen that there are. The year is one from kFirstLunarYear - 1 to
// kLastLunarYear; the last month of 2100 ends in 2101.
std::vector<LunarMonth> MonthsOfLunarYear(int year);
// Of a day in the calendar, here and below.
LunarMonth LunarMonthOf(Day day);
LunarDate LunarDateOf(Day day);
// Nothing where the lunar calendar has no such day, or the day lies outside the calendar.
std::optional<Day> DayOf(const LunarDate& date);

// "正月", "闰十一月"
std::u16string LunarMonthText(int number, bool isLeap);
// "初一", "廿九"
std::u16string LunarDayText(int day);
// "2033年闰十一月初一"
std::u16string LunarDateText(const LunarDate& date);

// The day of a lunar date that is written "2033-闰11-1" ("L11" does as well) or "2033年闰十一月初一", with the
// separators of ParseDay. Nothing as for DayOf.
std::optional<Day> ParseLunarDay(std::u16string_view text);

// Whether official word may give this day another lunar date: see DoubtfulMonths.
bool HasDoubtfulLunarDate(Day day);

}  // namespace scrivanta
