#include <algorithm>
#include <array>

#include "calendar/Festivals.h"
#include "calendar/LunarCalendar.h"
#include "calendar/PageParts.h"
#include "calendar/SolarTerms.h"
#include "text/DecimalText.h"

namespace scrivanta {

namespace {

using std::chrono::days;

constexpr unsigned kMonthsInARow = 3;
constexpr unsigned kMonths = 12;
constexpr int kMonthWidth = 3000;  // twips
constexpr int kDayWidth = 390;
constexpr int kMargin = 60;
constexpr int kMostWeeks = 6;
constexpr int kTitleSize = 32;  // half points, here and below
constexpr int kSmallSize = 17;

std::vector<int> TabsOfRow() {
  std::vector<int> stops;
  for (unsigned month = 0; month < kMonthsInARow; ++month) {
    for (int column = 0; column < kDaysOfWeek; ++column) {
      stops.push_back(kMargin + static_cast<int>(month) * kMonthWidth + column * kDayWidth);
    }
  }
  return stops;
}

std::vector<int> TabsOfTitles() {
  std::vector<int> stops;
  for (unsigned month = 0; month < kMonthsInARow; ++month) {
    stops.push_back(kMargin + static_cast<int>(month) * kMonthWidth);
  }
  return stops;
}

void WriteTitles(RtfPage& page, int year, unsigned firstMonth) {
  page.SetTabs(TabsOfTitles());
  for (unsigned month = firstMonth; month < firstMonth + kMonthsInARow; ++month) {
    page.Tab();
    // The lunar month that begins in this one, or the one that fills it.
    const LunarMonth lunar = LunarMonthOf(EndOfMonth(year, month) - days{1});
    page.Write(DecimalText(month) + u"月", {.bold = true, .halfPoints = 22});
    page.Write(u" " + LunarMonthText(lunar.number, lunar.isLeap) + ShortDayText(lunar.first) + u"起",
               {.colour = PageColour::kFaint, .halfPoints = kSmallSize});
  }
  page.EndLine();
}

void WriteHeads(RtfPage& page, bool mondayFirst) {
  page.SetTabs(TabsOfRow());
  for (unsigned month = 0; month < kMonthsInARow; ++month) {
    for (int column = 0; column < kDaysOfWeek; ++column) {
      page.Tab();
      page.Write(WeekdayOfColumn(column, mondayFirst), {.colour = PageColour::kFaint, .halfPoints = kSmallSize});
    }
  }
  page.EndLine();
}

PageFormat FormatInYear(Day day, const PageStyle& style) {
  PageFormat format = FormatOfDay(day, style);
  format.halfPoints = kSmallSize;
  format.underline = LunarDateOf(day).day == 1;
  if (!FestivalsOn(day).empty()) {
    format.colour = PageColour::kFestival;
    format.bold = true;
  } else if (TermOn(day)) {
    format.colour = PageColour::kTerm;
    format.bold = true;
  }
  return format;
}

void WriteWeek(RtfPage& page, int year, unsigned month, int week, const PageStyle& style) {
  const Day first = FirstDayOfMonth(year, month);
  const Day start = first - days{ColumnOf(first, style.mondayFirst)} + days{week * kDaysOfWeek};
  for (Day day = start; day < start + days{kDaysOfWeek}; day += days{1}) {
    page.Tab();
    if (day >= first && day < EndOfMonth(year, month)) {
      page.WriteDay(day, DecimalText(static_cast<unsigned>(std::chrono::year_month_day{day}.day())),
                    FormatInYear(day, style));
    }
  }
}

// The items, several in a line at stops of their own.
void WriteList(RtfPage& page, std::u16string_view title, const std::vector<std::u16string>& items, int inALine) {
  constexpr int kWidth = 9000;
  std::vector<int> stops;
  for (int item = 1; item < inALine; ++item) {
    stops.push_back(item * kWidth / inALine);
  }
  page.SetTabs(stops);
  page.EndLine();
  page.Write(title, {.bold = true});
  for (std::size_t item = 0; item < items.size(); ++item) {
    if (item % static_cast<std::size_t>(inALine) == 0) {
      page.EndLine();
    } else {
      page.Tab();
    }
    page.Write(items[item], {.halfPoints = kSmallSize});
  }
  page.EndLine();
}

std::vector<std::u16string> TermItems(int year) {
  std::vector<std::u16string> items;
  for (int number = 0; number < kTermCount; ++number) {
    const auto term = static_cast<Term>(number);
    const TermMoment moment = MomentOf(year, term);
    items.push_back(std::u16string(TermName(term)) + u" " + ShortDayText(moment.day) + u" " + TimeOf(moment));
  }
  return items;
}

std::vector<std::u16string> LunarMonthItems(int year) {
  std::vector<std::u16string> items;
  for (Day day = FirstDayOfYear(year); YearOf(day) == year; day += days{1}) {
    const LunarMonth month = LunarMonthOf(day);
    if (month.first == day) {
      items.push_back(LunarMonthText(month.number, month.isLeap) + (month.days == 30 ? u"大 " : u"小 ") +
                      ShortDayText(day) + u"起");
    }
  }
  return items;
}

std::vector<std::u16string> FestivalItems(int year) {
  std::vector<std::u16string> items;
  for (Day day = FirstDayOfYear(year); YearOf(day) == year; day += days{1}) {
    for (const std::u16string_view name : FestivalsOn(day)) {
      items.push_back(ShortDayText(day) + u" " + std::u16string(name));
    }
  }
  return items;
}

}  // namespace

CalendarPage YearPage(int year, const PageStyle& style) {
  const Day first = FirstDayOfYear(year);
  const Day end = EndOfMonth(year, kMonths);
  RtfPage page(DecimalText(year) + u"年");
  page.Write(DecimalText(year) + u"年", {.bold = true, .halfPoints = kTitleSize});
  page.Write(u"　" + LunarSpanText(first, end - days{1}), {.halfPoints = 20});
  page.EndLine();
  for (unsigned month = 1; month <= kMonths; month += kMonthsInARow) {
    WriteTitles(page, year, month);
    WriteHeads(page, style.mondayFirst);
    for (int week = 0; week < kMostWeeks; ++week) {
      for (unsigned place = 0; place < kMonthsInARow; ++place) {
        WriteWeek(page, year, month + place, week, style);
      }
      page.EndLine();
    }
  }
  WriteList(page, u"节气", TermItems(year), 4);
  WriteList(page, u"农历月", LunarMonthItems(year), 4);
  WriteList(page, u"节日", FestivalItems(year), 4);
  if (const std::u16string doubtful = DoubtfulDaysText(first, end); !doubtful.empty()) {
    page.EndLine();
    page.Write(doubtful, {.halfPoints = kSmallSize});
    page.EndLine();
  }
  return page.Finish();
}

}  // namespace scrivanta
