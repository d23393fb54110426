#include "calendar/LunarCalendar.h"

#include <algorithm>
#include <array>

#include "calendar/CalendarTable.h"
#include "calendar/DateParts.h"
#include "text/DecimalText.h"

namespace scrivanta {

namespace {

constexpr int kLongestMonth = 30;
constexpr char16_t kLeap = u'闰';

constexpr std::array<std::u16string_view, 12> kMonths = {u"正", u"二", u"三", u"四", u"五",   u"六",
                                                         u"七", u"八", u"九", u"十", u"十一", u"十二"};
// Other names that people write.
struct MonthName {
  std::u16string_view name;
  int number;
};
constexpr std::array kOtherMonths = {MonthName{u"一", 1}, MonthName{u"冬", 11}, MonthName{u"腊", 12}};
constexpr std::u16string_view kDigits = u"一二三四五六七八九十";

const LunarYearRow& RowOf(int year) {
  return LunarYears()[static_cast<std::size_t>(year - kFirstTableYear)];
}

Day FirstDayOfLunarYear(int year) {
  return Day{std::chrono::days{RowOf(year).firstDay}};
}

std::optional<int> ParseMonthName(std::u16string_view text) {
  if (const std::optional<int> number = ParseDigits(text)) {
    return number;
  }
  if (const auto* const found = std::ranges::find(kMonths, text); found != kMonths.end()) {
    return static_cast<int>(found - kMonths.begin()) + 1;
  }
  const auto* const other = std::ranges::find(kOtherMonths, text, &MonthName::name);
  return other == kOtherMonths.end() ? std::nullopt : std::optional(other->number);
}

std::optional<int> ParseLunarDayName(std::u16string_view text) {
  if (const std::optional<int> number = ParseDigits(text)) {
    return number;
  }
  for (int day = 1; day <= kLongestMonth; ++day) {
    if (text == LunarDayText(day)) {
      return day;
    }
  }
  return std::nullopt;
}

}  // namespace

std::vector<LunarMonth> MonthsOfLunarYear(int year) {
  const LunarYearRow& row = RowOf(year);
  std::vector<LunarMonth> months;
  Day first = FirstDayOfLunarYear(year);
  const std::size_t count = row.leapMonth == 0 ? 12 : 13;
  for (std::size_t place = 0; place < count; ++place) {
    const bool isBehindLeap = row.leapMonth != 0 && place >= row.leapMonth;
    const int days = kLongestMonth - 1 + ((row.longMonths >> place) & 1);
    months.push_back({.year = year,
                      .number = static_cast<int>(place) + (isBehindLeap ? 0 : 1),
                      .isLeap = row.leapMonth != 0 && place == row.leapMonth,
                      .first = first,
                      .days = days});
    first += std::chrono::days{days};
  }
  return months;
}

LunarMonth LunarMonthOf(Day day) {
  int year = std::min(YearOf(day), kLastLunarYear);
  if (day < FirstDayOfLunarYear(year)) {
    --year;
  }
  const std::vector<LunarMonth> months = MonthsOfLunarYear(year);
  return *std::prev(std::ranges::upper_bound(months, day, {}, &LunarMonth::first));
}

LunarDate LunarDateOf(Day day) {
  const LunarMonth month = LunarMonthOf(day);
  return {.year = month.year,
          .month = month.number,
          .isLeap = month.isLeap,
          .day = static_cast<int>((day - month.first).count()) + 1};
}

std::optional<Day> DayOf(const LunarDate& date) {
  if (date.year < kFirstTableYear || date.year > kLastLunarYear) {
    return std::nullopt;
  }
  for (const LunarMonth& month : MonthsOfLunarYear(date.year)) {
    if (month.number == date.month && month.isLeap == date.isLeap) {
      const Day day = month.first + std::chrono::days{date.day - 1};
      const bool isThere = date.day >= 1 && date.day <= month.days && IsInCalendar(day);
      return isThere ? std::optional(day) : std::nullopt;
    }
  }
  return std::nullopt;
}

std::u16string LunarMonthText(int number, bool isLeap) {
  std::u16string text(isLeap ? 1 : 0, kLeap);
  text += kMonths[static_cast<std::size_t>(number - 1)];
  return text += u'月';
}

std::u16string LunarDayText(int day) {
  if (day == 20 || day == 30) {
    return day == 20 ? u"二十" : u"三十";
  }
  constexpr std::u16string_view kTens = u"初十廿";
  const auto index = static_cast<std::size_t>(day - 1);
  return {day == 10 ? u'初' : kTens[static_cast<std::size_t>(day / 10)], kDigits[index % 10]};
}

std::u16string LunarDateText(const LunarDate& date) {
  return DecimalText(date.year) + u"年" + LunarMonthText(date.month, date.isLeap) + LunarDayText(date.day);
}

std::optional<Day> ParseLunarDay(std::u16string_view text) {
  std::optional<DateParts> parts = SplitDate(text);
  if (!parts) {
    return std::nullopt;
  }
  const bool isLeap = parts->month.front() == kLeap || parts->month.front() == u'L';
  parts->month.remove_prefix(isLeap ? 1 : 0);
  const std::optional<int> month = ParseMonthName(parts->month);
  const std::optional<int> day = ParseLunarDayName(parts->day);
  return month && day ? DayOf({.year = parts->year, .month = *month, .isLeap = isLeap, .day = *day}) : std::nullopt;
}

bool HasDoubtfulLunarDate(Day day) {
  const int number = static_cast<int>(day.time_since_epoch().count());
  return std::ranges::any_of(DoubtfulMonths(), [number](const DoubtfulDay& doubtful) {
    const LunarMonth month = LunarMonthOf(Day{std::chrono::days{doubtful.day}});
    return number >= std::min(doubtful.day, doubtful.otherDay) && number < doubtful.day + month.days;
  });
}

}  // namespace scrivanta
