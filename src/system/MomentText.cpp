#include "system/MomentText.h"

#include <algorithm>

#include "regexp/RegExp.h"
#include "text/DateTimeText.h"
#include "text/UpperCase.h"

namespace scrivanta {

namespace {

// More than the calendar has, and so little that two of them can be added.
constexpr FileTicks kMostShift = std::chrono::years(9000);

// The groups of a pattern that is to match all of the text.
std::optional<std::vector<std::u16string>> GroupsOf(std::u16string_view pattern, std::u16string_view text) {
  std::optional<std::vector<std::u16string>> found;
  NoProgress progress;
  BuiltInRegExpEngine()
      .Compile(pattern, {})
      ->Scan(
          text, 0,
          [&found](const RegExpMatch& match) {
            found.emplace();
            for (const auto& group : match.groups) {
              found->emplace_back(group.value_or(u""));
            }
            return false;
          },
          progress);
  return found;
}

// Digits only, few enough for the type.
int NumberOf(std::u16string_view digits) {
  int number = 0;
  for (const char16_t digit : digits) {
    number = number * 10 + (digit - u'0');
  }
  return number;
}

int YearOf(std::u16string_view digits) {
  constexpr int kFirstShortYear = 70;
  const int number = NumberOf(digits);
  if (digits.size() > 2) {
    return number;
  }
  return number + (number < kFirstShortYear ? 2000 : 1900);
}

// Hundreds of nanoseconds from the digits behind the point.
FileTicks TicksOf(std::u16string fraction) {
  constexpr std::size_t kDigits = 7;
  fraction.resize(kDigits, u'0');
  return FileTicks(NumberOf(fraction));
}

std::optional<FileTicks> TimeOfDay(const MomentParts& parts) {
  const std::chrono::hours hour(NumberOf(parts.hour));
  const std::chrono::minutes minute(NumberOf(parts.minute));
  const std::chrono::seconds second(NumberOf(parts.second));
  if (hour >= std::chrono::days(1) || minute >= std::chrono::hours(1) || second >= std::chrono::minutes(1)) {
    return std::nullopt;
  }
  return hour + minute + second + TicksOf(parts.fraction);
}

// The length of a unit, by its first letter or character; nothing when there is no such unit.
std::optional<std::chrono::seconds> UnitOf(std::u16string_view word) {
  using std::chrono::seconds;
  static constexpr std::pair<std::u16string_view, seconds> kUnits[] = {{u"W周", std::chrono::weeks(1)},
                                                                       {u"D天日", std::chrono::days(1)},
                                                                       {u"H小时", std::chrono::hours(1)},
                                                                       {u"M分", std::chrono::minutes(1)},
                                                                       {u"S秒", seconds(1)}};
  for (const auto& [letters, unit] : kUnits) {
    if (letters.find(UpperCase(word).front()) != std::u16string_view::npos) {
      return unit;
    }
  }
  return std::nullopt;
}

std::optional<FileTicks> ClockShift(std::u16string_view text) {
  const auto groups = GroupsOf(u"^\\s*([+-]?)\\s*(\\d{1,5}):(\\d{1,2})(?::(\\d{1,2}))?\\s*$", text);
  if (!groups) {
    return std::nullopt;
  }
  const FileTicks shift = std::chrono::hours(NumberOf((*groups)[1])) + std::chrono::minutes(NumberOf((*groups)[2])) +
                          std::chrono::seconds(NumberOf((*groups)[3]));
  return (*groups)[0] == u"-" ? -shift : shift;
}

}  // namespace

LocalFileMoment PartialMoment::AppliedTo(LocalFileMoment moment) const {
  const auto day = std::chrono::floor<std::chrono::days>(moment);
  return LocalFileMoment(date.value_or(day)) + time.value_or(moment - day);
}

std::optional<PartialMoment> MomentOfParts(const MomentParts& parts) {
  PartialMoment moment;
  if (!parts.year.empty() && !parts.month.empty() && !parts.day.empty()) {
    const std::chrono::year_month_day date{std::chrono::year(YearOf(parts.year)),
                                           std::chrono::month(static_cast<unsigned>(NumberOf(parts.month))),
                                           std::chrono::day(static_cast<unsigned>(NumberOf(parts.day)))};
    if (!date.ok()) {
      return std::nullopt;
    }
    moment.date = std::chrono::local_days(date);
  }
  if (!parts.hour.empty() && !parts.minute.empty()) {
    moment.time = TimeOfDay(parts);
    if (!moment.time) {
      return std::nullopt;
    }
  }
  return moment.date || moment.time ? std::optional(moment) : std::nullopt;
}

std::optional<PartialMoment> ParseMoment(std::u16string_view text) {
  const auto groups = GroupsOf(
      u"^\\s*(?:(\\d{4})[-/.年](\\d{1,2})[-/.月](\\d{1,2})日?)?"
      u"(?:(?:^|[ T])\\s*(\\d{1,2})[:时](\\d{1,2})(?:[:分](\\d{1,2})(?:\\.(\\d{1,7}))?秒?)?)?\\s*$",
      text);
  if (!groups) {
    return std::nullopt;
  }
  return MomentOfParts({.year = (*groups)[0],
                        .month = (*groups)[1],
                        .day = (*groups)[2],
                        .hour = (*groups)[3],
                        .minute = (*groups)[4],
                        .second = (*groups)[5],
                        .fraction = (*groups)[6]});
}

std::optional<FileTicks> ParseShift(std::u16string_view text) {
  if (const auto byClock = ClockShift(text)) {
    return byClock;
  }
  FileTicks shift{};
  bool isNegative = false;
  std::size_t end = 0;
  bool isGood = true;
  NoProgress progress;
  const auto add = [&](const RegExpMatch& match) {
    const auto group = [&match](std::size_t index) { return match.groups[index].value_or(u""); };
    if (!group(0).empty()) {
      isNegative = group(0) == u"-";
    }
    const auto unit = group(2).empty() ? std::chrono::seconds(1) : UnitOf(group(2));
    isGood = match.start == end && unit;
    end = match.end();
    const FileTicks by = isGood ? FileTicks(*unit * NumberOf(group(1))) : FileTicks();
    isGood = isGood && by <= kMostShift && std::chrono::abs(shift) <= kMostShift;
    shift += isGood ? (isNegative ? -by : by) : FileTicks();
    return isGood;
  };
  BuiltInRegExpEngine()
      .Compile(u"\\s*([+-]?)\\s*(\\d{1,6})(?!\\d)\\s*([A-Za-z]+|[周天日分秒]钟?|小?时)?\\s*", {})
      ->Scan(text, 0, add, progress);
  return isGood && end == text.size() && !text.empty() ? std::optional(shift) : std::nullopt;
}

std::u16string MomentText(LocalFileMoment moment) {
  const auto shown = std::chrono::floor<std::chrono::milliseconds>(moment);
  return DateText(shown) + u" " + TimeText(shown);
}

}  // namespace scrivanta
