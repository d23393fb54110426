// All that is to be said of a day.
#pragma once

#include <string>
#include <string_view>

#include "calendar/Day.h"

namespace scrivanta {

inline constexpr std::u16string_view kDoubtfulMark = u"以官方颁布为准";

// Whether official word may change what is said of the day.
bool IsDoubtful(Day day);
// Term with its time, festivals and beginnings of seasons, separated by blanks, at the end kDoubtfulMark where it
// belongs: "冬至 21:45 一九". Empty on most days.
std::u16string OccasionsText(Day day);
// Date, lunar date, stems and branches, occasions; separated by tabs, three of them always.
std::u16string DayLine(Day day);
// For people, in lines that end with CR LF.
std::u16string DayDetails(Day day);

// "2033-12-22 到 2034-02-19：59 天（8 周零 3 天）"
std::u16string DistanceText(Day from, Day to);

}  // namespace scrivanta
