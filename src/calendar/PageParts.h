// What the pages of a month and of a year have in common.
#pragma once

#include <string>
#include <string_view>

#include "calendar/CalendarPages.h"

namespace scrivanta {

inline constexpr int kDaysOfWeek = 7;

// "日" and so on, for the column from 0.
std::u16string_view WeekdayOfColumn(int column, bool mondayFirst);
// The column of a day.
int ColumnOf(Day day, bool mondayFirst);
Day FirstDayOfMonth(int year, unsigned month);
// The day behind its last one.
Day EndOfMonth(int year, unsigned month);
// Colour and ground of the day's number.
PageFormat FormatOfDay(Day day, const PageStyle& style);
// "12-21"
std::u16string ShortDayText(Day day);
// "癸丑年（牛）十一月至闰十一月", of the lunar months from one day to another.
std::u16string LunarSpanText(Day from, Day to);
// Says of days whose place official word may change where they are; nothing when there are none from one day to
// another, the last one not counted.
std::u16string DoubtfulDaysText(Day from, Day end);

}  // namespace scrivanta
