#include "calendar/Day.h"

#include "calendar/DateParts.h"
#include "text/DateTimeText.h"

namespace scrivanta {

std::optional<Day> ParseDay(std::u16string_view text) {
  const std::optional<DateParts> parts = SplitDate(text);
  if (!parts) {
    return std::nullopt;
  }
  const std::optional<int> month = ParseDigits(parts->month);
  const std::optional<int> dayOfMonth = ParseDigits(parts->day);
  if (!month || !dayOfMonth) {
    return std::nullopt;
  }
  const std::chrono::year_month_day date{std::chrono::year{parts->year},
                                         std::chrono::month{static_cast<unsigned>(*month)},
                                         std::chrono::day{static_cast<unsigned>(*dayOfMonth)}};
  return date.ok() && IsInCalendar(Day{date}) ? std::optional(Day{date}) : std::nullopt;
}

std::u16string DayText(Day day) {
  return DateText(day);
}

std::u16string WeekdayText(Day day) {
  constexpr std::u16string_view kNames = u"日一二三四五六";
  return std::u16string(u"星期") + kNames[std::chrono::weekday{day}.c_encoding()];
}

IsoWeek IsoWeekOf(Day day) {
  const Day thursday = day + std::chrono::days{4 - static_cast<int>(std::chrono::weekday{day}.iso_encoding())};
  const int year = YearOf(thursday);
  return {.year = year, .week = static_cast<int>((thursday - FirstDayOfYear(year)).count()) / 7 + 1};
}

}  // namespace scrivanta
