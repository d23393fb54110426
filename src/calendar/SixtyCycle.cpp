#include "calendar/SixtyCycle.h"

#include "calendar/LunarCalendar.h"
#include "calendar/SolarTerms.h"

namespace scrivanta {

namespace {

constexpr int kLength = 60;
constexpr int kStems = 10;
constexpr int kBranches = 12;

// The remainder that is never negative.
constexpr int Wrapped(long long number, int length) {
  return static_cast<int>((number % length + length) % length);
}

}  // namespace

int CycleOfYear(int lunarYear) {
  return Wrapped(lunarYear - 4, kLength);
}

int CycleOfSolarYear(Day day) {
  const int year = YearOf(day);
  return CycleOfYear(day < MomentOf(year, Term::kLiChun).day ? year - 1 : year);
}

int CycleOfMonth(Day day) {
  // Counted from the month of 小寒 of the year 0; 小寒 in January begins the month 丑.
  const int term = MonthTermOf(day);
  const std::chrono::year_month_day date{day};
  const bool isStillLastYears = term == kBranches - 1 && date.month() == std::chrono::January;
  const int year = static_cast<int>(date.year()) - (isStillLastYears ? 1 : 0);
  constexpr int kOfFirstMonth = 13;
  return Wrapped(12LL * year + term + kOfFirstMonth, kLength);
}

int CycleOfDay(Day day) {
  constexpr Day kJiaZi{std::chrono::year{2000} / 1 / 7};
  return Wrapped((day - kJiaZi).count(), kLength);
}

std::u16string CycleText(int place) {
  constexpr std::u16string_view kStemNames = u"甲乙丙丁戊己庚辛壬癸";
  constexpr std::u16string_view kBranchNames = u"子丑寅卯辰巳午未申酉戌亥";
  return {kStemNames[static_cast<std::size_t>(place % kStems)],
          kBranchNames[static_cast<std::size_t>(place % kBranches)]};
}

std::u16string AnimalText(int lunarYear) {
  constexpr std::u16string_view kAnimals = u"鼠牛虎兔龙蛇马羊猴鸡狗猪";
  return {kAnimals[static_cast<std::size_t>(CycleOfYear(lunarYear) % kBranches)]};
}

std::u16string CycleTextOf(Day day) {
  return CycleText(CycleOfYear(LunarDateOf(day).year)) + u"年 " + CycleText(CycleOfMonth(day)) + u"月 " +
         CycleText(CycleOfDay(day)) + u"日";
}

}  // namespace scrivanta
