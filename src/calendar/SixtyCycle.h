// The names of years, months and days by the cycle of sixty, of ten stems with twelve branches.
#pragma once

#include <string>

#include "calendar/Day.h"

namespace scrivanta {

// Places in the cycle, from 0 for 甲子 to 59.
// The lunar year begins with the first day of its first month.
int CycleOfYear(int lunarYear);
// By the solar year that begins with 立春; the whole day of a term counts to what the term begins, here and below.
int CycleOfSolarYear(Day day);
// The month begins with the term, whatever the lunar months do.
int CycleOfMonth(Day day);
int CycleOfDay(Day day);

// "癸丑"
std::u16string CycleText(int place);
// "牛"
std::u16string AnimalText(int lunarYear);
// "癸丑年 甲子月 丙寅日", the year that of the lunar date.
std::u16string CycleTextOf(Day day);

}  // namespace scrivanta
