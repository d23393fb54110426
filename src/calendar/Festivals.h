// Festivals of both calendars, and the seasons that are counted from a term: 三伏, 数九, 梅雨.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "calendar/Day.h"

namespace scrivanta {

// The festivals of a day, the lunar ones first. A festival of the Gregorian calendar is not told before the year of its
// beginning.
std::vector<std::u16string_view> FestivalsOn(Day day);

struct SeasonDay {
  std::u16string_view name;  // "初伏", "三九"
  int day = 0;               // of it, from 1
};
// 三伏 and 数九: each begins anew with its parts.
std::optional<SeasonDay> SeasonOf(Day day);
// What begins or ends on the day: "初伏", "三九", "入梅", "出梅".
std::vector<std::u16string_view> SeasonsBeginningOn(Day day);

// The festivals on which nobody works by the rule of 2025 (春节 with 除夕 and three days, 清明, two days of 劳动节,
// 端午, 中秋, three days of 国庆 and 元旦). Days that are exchanged for weekends by an order of each year are not known
// here.
bool IsPublicHoliday(Day day);
// A public holiday, a Saturday or a Sunday.
bool IsRestDay(Day day);

}  // namespace scrivanta
