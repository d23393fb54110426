#include "calendar/Festivals.h"

#include <algorithm>
#include <array>
#include <utility>

#include "calendar/LunarCalendar.h"
#include "calendar/SixtyCycle.h"
#include "calendar/SolarTerms.h"

namespace scrivanta {

namespace {

using std::chrono::days;
using std::chrono::year_month_day;

struct LunarFestival {
  int month;
  int day;
  std::u16string_view name;
};

constexpr auto kLunarFestivals = std::to_array<LunarFestival>({
    {1, 1, u"春节"},
    {1, 15, u"元宵节"},
    {2, 2, u"龙抬头"},
    {3, 3, u"上巳节"},
    {5, 5, u"端午节"},
    {7, 7, u"七夕节"},
    {7, 15, u"中元节"},
    {8, 15, u"中秋节"},
    {9, 9, u"重阳节"},
    {12, 8, u"腊八节"},
    {12, 23, u"北方小年"},
    {12, 24, u"南方小年"},
});

struct FixedFestival {
  unsigned month;
  unsigned day;
  int since;  // year
  std::u16string_view name;
};

constexpr auto kFixedFestivals = std::to_array<FixedFestival>({
    {1, 1, 1912, u"元旦"},
    {2, 14, 1900, u"情人节"},
    {3, 8, 1924, u"妇女节"},
    {3, 12, 1979, u"植树节"},
    {5, 1, 1920, u"劳动节"},
    {5, 4, 1950, u"青年节"},
    {6, 1, 1950, u"儿童节"},
    {7, 1, 1941, u"建党节"},
    {8, 1, 1933, u"建军节"},
    {9, 10, 1985, u"教师节"},
    {10, 1, 1949, u"国庆节"},
    {12, 25, 1900, u"圣诞节"},
});

struct SundayFestival {
  unsigned month;
  unsigned sunday;  // of the month, from 1
  int since;
  std::u16string_view name;
};

constexpr auto kSundayFestivals = std::to_array<SundayFestival>({
    {5, 2, 1914, u"母亲节"},
    {6, 3, 1910, u"父亲节"},
});

constexpr std::array<std::u16string_view, 9> kNines = {u"一九", u"二九", u"三九", u"四九", u"五九",
                                                       u"六九", u"七九", u"八九", u"九九"};

enum Stem { kBing = 2, kGeng = 6 };
constexpr int kWei = 7;  // the branch
constexpr int kStemCount = 10;
constexpr int kBranchCount = 12;

// The first day from there on whose place in a cycle of this length is the wanted one.
Day FirstFrom(Day day, int wanted, int length) {
  return day + days{(wanted - CycleOfDay(day) % length + length) % length};
}

bool IsLastOfLunarYear(Day day) {
  const LunarMonth month = LunarMonthOf(day);
  const std::vector<LunarMonth> months = MonthsOfLunarYear(month.year);
  return day == months.back().first + days{months.back().days - 1};
}

void AddLunarFestivals(Day day, std::vector<std::u16string_view>& names) {
  const LunarDate date = LunarDateOf(day);
  for (const LunarFestival& festival : kLunarFestivals) {
    if (!date.isLeap && festival.month == date.month && festival.day == date.day) {
      names.push_back(festival.name);
    }
  }
  if (IsLastOfLunarYear(day)) {
    names.push_back(u"除夕");
  }
  if (TermOn(day) == Term::kQingMing) {
    names.push_back(u"清明节");
  }
}

void AddGregorianFestivals(Day day, std::vector<std::u16string_view>& names) {
  const year_month_day date{day};
  const int year = YearOf(day);
  for (const FixedFestival& festival : kFixedFestivals) {
    if (date.month() == std::chrono::month{festival.month} && date.day() == std::chrono::day{festival.day} &&
        year >= festival.since) {
      names.push_back(festival.name);
    }
  }
  for (const SundayFestival& festival : kSundayFestivals) {
    const std::chrono::year_month_weekday wanted =
        date.year() / std::chrono::month{festival.month} / std::chrono::Sunday[festival.sunday];
    if (day == Day{wanted} && year >= festival.since) {
      names.push_back(festival.name);
    }
  }
}

std::optional<SeasonDay> DogDayOf(Day day) {
  const int year = YearOf(day);
  // The days of the stem 庚 on which the three parts begin; the last one lasts ten days.
  const Day first = FirstFrom(MomentOf(year, Term::kXiaZhi).day, kGeng, kStemCount) + days{20};
  const Day last = FirstFrom(MomentOf(year, Term::kLiQiu).day, kGeng, kStemCount);
  const std::array parts = {std::pair{first, u"初伏"}, std::pair{first + days{10}, u"中伏"}, std::pair{last, u"末伏"}};
  for (auto part = parts.rbegin(); part != parts.rend(); ++part) {
    if (day >= part->first && day < last + days{10}) {
      return SeasonDay{.name = part->second, .day = static_cast<int>((day - part->first).count()) + 1};
    }
  }
  return std::nullopt;
}

std::optional<SeasonDay> NineOf(Day day) {
  const int year = YearOf(day);
  const Day own = MomentOf(year, Term::kDongZhi).day;
  const Day start = day >= own ? own : MomentOf(year - 1, Term::kDongZhi).day;
  const int since = static_cast<int>((day - start).count());
  constexpr int kLength = 9;
  if (since >= kLength * static_cast<int>(kNines.size())) {
    return std::nullopt;
  }
  return SeasonDay{.name = kNines[static_cast<std::size_t>(since / kLength)], .day = since % kLength + 1};
}

bool IsFestival(Day day, std::u16string_view name) {
  return IsInCalendar(day) && std::ranges::count(FestivalsOn(day), name) != 0;
}

}  // namespace

std::vector<std::u16string_view> FestivalsOn(Day day) {
  std::vector<std::u16string_view> names;
  AddLunarFestivals(day, names);
  AddGregorianFestivals(day, names);
  return names;
}

std::optional<SeasonDay> SeasonOf(Day day) {
  const std::optional<SeasonDay> nine = NineOf(day);
  return nine ? nine : DogDayOf(day);
}

std::vector<std::u16string_view> SeasonsBeginningOn(Day day) {
  std::vector<std::u16string_view> names;
  const std::optional<SeasonDay> season = SeasonOf(day);
  if (season && season->day == 1) {
    names.push_back(season->name);
  }
  const int year = YearOf(day);
  if (day == FirstFrom(MomentOf(year, Term::kMangZhong).day, kBing, kStemCount)) {
    names.push_back(u"入梅");
  }
  if (day == FirstFrom(MomentOf(year, Term::kXiaoShu).day, kWei, kBranchCount)) {
    names.push_back(u"出梅");
  }
  return names;
}

bool IsPublicHoliday(Day day) {
  struct Holiday {
    std::u16string_view name;
    int days;  // from the festival's on
  };
  constexpr std::array kHolidays = {Holiday{u"元旦", 1},   Holiday{u"除夕", 4},   Holiday{u"清明节", 1},
                                    Holiday{u"劳动节", 2}, Holiday{u"端午节", 1}, Holiday{u"中秋节", 1},
                                    Holiday{u"国庆节", 3}};
  return std::ranges::any_of(kHolidays, [day](const Holiday& holiday) {
    for (int since = 0; since < holiday.days; ++since) {
      if (IsFestival(day - days{since}, holiday.name)) {
        return true;
      }
    }
    return false;
  });
}

bool IsRestDay(Day day) {
  constexpr unsigned kSaturday = 6;
  return std::chrono::weekday{day}.iso_encoding() >= kSaturday || IsPublicHoliday(day);
}

}  // namespace scrivanta
