#include "calendar/DayReport.h"

#include <cstdlib>

#include "calendar/Festivals.h"
#include "calendar/LunarCalendar.h"
#include "calendar/SixtyCycle.h"
#include "calendar/SolarTerms.h"
#include "text/DecimalText.h"

namespace scrivanta {

namespace {

void Append(std::u16string& text, std::u16string_view word) {
  if (!text.empty()) {
    text += u' ';
  }
  text += word;
}

std::u16string CycleDetails(Day day) {
  const int year = LunarDateOf(day).year;
  std::u16string text = CycleTextOf(day) + u"（生肖" + AnimalText(year) + u"，年从正月初一起，月从节起）";
  const int solarYear = CycleOfSolarYear(day);
  if (solarYear != CycleOfYear(year)) {
    text += u"\r\n按立春换年：" + CycleText(solarYear) + u"年";
  }
  return text;
}

}  // namespace

bool IsDoubtful(Day day) {
  return HasDoubtfulLunarDate(day) || HasDoubtfulTerm(day);
}

std::u16string OccasionsText(Day day) {
  std::u16string text;
  if (const std::optional<Term> term = TermOn(day)) {
    Append(text, TermName(*term));
    Append(text, TimeOf(MomentOf(YearOf(day), *term)));
  }
  for (const std::u16string_view name : FestivalsOn(day)) {
    Append(text, name);
  }
  for (const std::u16string_view name : SeasonsBeginningOn(day)) {
    Append(text, name);
  }
  if (IsDoubtful(day)) {
    Append(text, kDoubtfulMark);
  }
  return text;
}

std::u16string DayLine(Day day) {
  return DayText(day) + u'\t' + LunarDateText(LunarDateOf(day)) + u'\t' + CycleTextOf(day) + u'\t' + OccasionsText(day);
}

std::u16string DayDetails(Day day) {
  const LunarMonth month = LunarMonthOf(day);
  const IsoWeek week = IsoWeekOf(day);
  const auto dayOfYear = (day - FirstDayOfYear(YearOf(day))).count() + 1;
  std::u16string text = DayText(day) + u" " + WeekdayText(day) + u"，" + DecimalText(YearOf(day)) + u" 年第 " +
                        DecimalText(dayOfYear) + u" 天，" + DecimalText(week.year) + u" 年第 " +
                        DecimalText(week.week) + u" 周\r\n农历" + LunarDateText(LunarDateOf(day)) + u"（" +
                        (month.days == 30 ? u"大月 30 天" : u"小月 29 天") + u"）\r\n" + CycleDetails(day);
  if (const std::u16string occasions = OccasionsText(day); !occasions.empty()) {
    text += u"\r\n" + occasions;
  }
  if (const std::optional<SeasonDay> season = SeasonOf(day)) {
    text += u"\r\n" + std::u16string(season->name) + u"第 " + DecimalText(season->day) + u" 天";
  }
  if (IsPublicHoliday(day)) {
    text += u"\r\n法定节假日（按 2025 年起的规定，调休不在内）";
  }
  return text + u"\r\n";
}

std::u16string DistanceText(Day from, Day to) {
  const auto distance = (to - from).count();
  const auto size = std::llabs(distance);
  constexpr int kWeek = 7;
  return DayText(from) + u" 到 " + DayText(to) + u"：" + DecimalText(distance) + u" 天（" + DecimalText(size / kWeek) +
         u" 周零 " + DecimalText(size % kWeek) + u" 天）";
}

}  // namespace scrivanta
