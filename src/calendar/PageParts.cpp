#include "calendar/PageParts.h"

#include "calendar/DayReport.h"
#include "calendar/Festivals.h"
#include "calendar/LunarCalendar.h"
#include "calendar/SixtyCycle.h"

namespace scrivanta {

std::u16string_view WeekdayOfColumn(int column, bool mondayFirst) {
  constexpr std::u16string_view kNames = u"日一二三四五六";
  return kNames.substr(static_cast<std::size_t>((column + (mondayFirst ? 1 : 0)) % kDaysOfWeek), 1);
}

int ColumnOf(Day day, bool mondayFirst) {
  const std::chrono::weekday weekday{day};
  return static_cast<int>(mondayFirst ? weekday.iso_encoding() - 1 : weekday.c_encoding());
}

Day FirstDayOfMonth(int year, unsigned month) {
  return Day{std::chrono::year{year} / std::chrono::month{month} / 1};
}

Day EndOfMonth(int year, unsigned month) {
  return Day{std::chrono::year{year} / std::chrono::month{month} / std::chrono::last} + std::chrono::days{1};
}

PageFormat FormatOfDay(Day day, const PageStyle& style) {
  PageFormat format;
  format.colour = IsRestDay(day) ? PageColour::kRest : PageColour::kOrdinary;
  if (day == style.today) {
    format.ground = PageGround::kToday;
    format.bold = true;
  } else if (day == style.chosen) {
    format.ground = PageGround::kChosen;
  }
  return format;
}

std::u16string ShortDayText(Day day) {
  constexpr std::size_t kYearAndStroke = 5;
  return DayText(day).substr(kYearAndStroke);
}

std::u16string LunarSpanText(Day from, Day to) {
  const auto yearText = [](int year) { return CycleText(CycleOfYear(year)) + u"年（" + AnimalText(year) + u"）"; };
  const LunarDate first = LunarDateOf(from);
  const LunarDate last = LunarDateOf(to);
  const std::u16string begin = yearText(first.year) + LunarMonthText(first.month, first.isLeap);
  if (LunarMonthOf(from).first == LunarMonthOf(to).first) {
    return begin;
  }
  return begin + u"至" + (last.year == first.year ? u"" : yearText(last.year)) +
         LunarMonthText(last.month, last.isLeap);
}

std::u16string DoubtfulDaysText(Day from, Day end) {
  std::u16string text;
  for (Day day = from; day < end; day += std::chrono::days{1}) {
    const bool follows = day > from && IsDoubtful(day - std::chrono::days{1});
    const bool goesOn = day + std::chrono::days{1} < end && IsDoubtful(day + std::chrono::days{1});
    if (IsDoubtful(day) && !follows) {
      text += (text.empty() ? u"" : u"、") + ShortDayText(day);
    } else if (IsDoubtful(day) && !goesOn) {
      text += u" 至 " + ShortDayText(day);
    }
  }
  return text.empty() ? text : text + u" 的农历日期或节气离午夜太近，" + std::u16string(kDoubtfulMark) + u"。";
}

}  // namespace scrivanta
