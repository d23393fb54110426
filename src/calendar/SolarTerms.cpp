#include "calendar/SolarTerms.h"

#include <algorithm>
#include <array>

#include "calendar/CalendarTable.h"

namespace scrivanta {

namespace {

constexpr int kMinutesOfDay = 24 * 60;

constexpr std::array<std::u16string_view, kTermCount> kNames = {
    u"小寒", u"大寒", u"立春", u"雨水", u"惊蛰", u"春分", u"清明", u"谷雨", u"立夏", u"小满", u"芒种", u"夏至",
    u"小暑", u"大暑", u"立秋", u"处暑", u"白露", u"秋分", u"寒露", u"霜降", u"立冬", u"小雪", u"大雪", u"冬至"};

}  // namespace

TermMoment MomentOf(int year, Term term) {
  const std::int32_t minutes =
      Terms()[static_cast<std::size_t>(year - kFirstTableYear)][static_cast<std::size_t>(term)];
  return {.day = FirstDayOfYear(year) + std::chrono::days{minutes / kMinutesOfDay}, .minute = minutes % kMinutesOfDay};
}

std::optional<Term> TermOn(Day day) {
  const std::chrono::year_month_day date{day};
  // Each month of the Gregorian calendar has two.
  const int first = 2 * (static_cast<int>(static_cast<unsigned>(date.month())) - 1);
  for (const int number : {first, first + 1}) {
    const auto term = static_cast<Term>(number);
    if (MomentOf(static_cast<int>(date.year()), term).day == day) {
      return term;
    }
  }
  return std::nullopt;
}

int MonthTermOf(Day day) {
  const std::chrono::year_month_day date{day};
  const int month = static_cast<int>(static_cast<unsigned>(date.month())) - 1;
  const bool hasBegun = MomentOf(static_cast<int>(date.year()), static_cast<Term>(2 * month)).day <= day;
  return hasBegun ? month : (month + 11) % 12;
}

std::u16string_view TermName(Term term) {
  return kNames[static_cast<std::size_t>(term)];
}

std::u16string TimeOf(const TermMoment& moment) {
  const auto digit = [](int number) { return static_cast<char16_t>(u'0' + number); };
  const int hour = moment.minute / 60;
  const int minute = moment.minute % 60;
  return {digit(hour / 10), digit(hour % 10), u':', digit(minute / 10), digit(minute % 10)};
}

bool HasDoubtfulTerm(Day day) {
  const int number = static_cast<int>(day.time_since_epoch().count());
  return std::ranges::any_of(DoubtfulTerms(), [number](const DoubtfulDay& doubtful) {
    return number == doubtful.day || number == doubtful.otherDay;
  });
}

}  // namespace scrivanta
