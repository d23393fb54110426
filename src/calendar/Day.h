// The days that the calendar knows, and how they are written.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace scrivanta {

using Day = std::chrono::local_days;

inline constexpr Day kFirstDay{std::chrono::year{1900} / 1 / 1};
inline constexpr Day kLastDay{std::chrono::year{2100} / 12 / 31};

constexpr bool IsInCalendar(Day day) noexcept {
  return kFirstDay <= day && day <= kLastDay;
}
constexpr int YearOf(Day day) noexcept {
  return static_cast<int>(std::chrono::year_month_day{day}.year());
}
constexpr Day FirstDayOfYear(int year) noexcept {
  return Day{std::chrono::year{year} / 1 / 1};
}

// A day of the Gregorian calendar written "2033-12-22", "2033/12/22", "2033.12.22" or "2033年12月22日". Nothing for
// what is no day, or lies outside the calendar.
std::optional<Day> ParseDay(std::u16string_view text);
// "2033-12-22"
std::u16string DayText(Day day);
// "星期四"
std::u16string WeekdayText(Day day);

struct IsoWeek {
  int year = 0;  // to which the week belongs
  int week = 0;  // from 1
};
// The week, from Monday to Sunday, by ISO 8601: a year's first one holds its first Thursday.
IsoWeek IsoWeekOf(Day day);

}  // namespace scrivanta
