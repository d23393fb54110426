#include <algorithm>

#include "calendar/DayReport.h"
#include "calendar/Festivals.h"
#include "calendar/LunarCalendar.h"
#include "calendar/PageParts.h"
#include "calendar/SolarTerms.h"
#include "text/DecimalText.h"

namespace scrivanta {

namespace {

using std::chrono::days;

constexpr int kWeekWidth = 600;  // twips
constexpr int kDayWidth = 1200;
constexpr int kTitleSize = 32;  // half points, here and below
constexpr int kNumberSize = 28;
constexpr int kSmallSize = 17;

std::vector<int> TabsOfMonth() {
  std::vector<int> stops;
  for (int column = 0; column < kDaysOfWeek; ++column) {
    stops.push_back(kWeekWidth + column * kDayWidth);
  }
  return stops;
}

struct Label {
  std::u16string text;
  PageFormat format;
};

// The one thing that stands below a day's number.
Label LabelOf(Day day) {
  const std::optional<Term> term = TermOn(day);
  const std::vector<std::u16string_view> festivals = FestivalsOn(day);
  const std::vector<std::u16string_view> seasons = SeasonsBeginningOn(day);
  const LunarMonth month = LunarMonthOf(day);
  Label label{.text = std::u16string(term ? TermName(*term) : u""),
              .format = {.colour = PageColour::kTerm, .halfPoints = kSmallSize}};
  if (!festivals.empty()) {
    label.format.colour = PageColour::kFestival;
    label.text = term == Term::kQingMing ? festivals.front() : label.text + std::u16string(festivals.front());
  } else if (!term && !seasons.empty() && day != month.first) {
    label.text = seasons.front();
  } else if (!term) {
    label.format.colour = PageColour::kFaint;
    label.text = day == month.first ? LunarMonthText(month.number, month.isLeap) + (month.days == 30 ? u"大" : u"小")
                                    : LunarDayText(LunarDateOf(day).day);
    label.format.underline = day == month.first;
  }
  return label;
}

// The days of one week that lie in the month.
struct Week {
  Day monday;  // or Sunday: what is in column 0, in the month or not
  Day first;
  Day end;
};

void WriteNumbers(RtfPage& page, const Week& week, const PageStyle& style) {
  const Day thursday = week.monday + days{style.mondayFirst ? 3 : 4};
  page.Write(DecimalText(IsoWeekOf(thursday).week), {.colour = PageColour::kFaint, .halfPoints = kSmallSize});
  for (Day day = week.monday; day < week.end; day += days{1}) {
    page.Tab();
    if (day < week.first) {
      continue;
    }
    PageFormat format = FormatOfDay(day, style);
    format.halfPoints = kNumberSize;
    std::u16string number = DecimalText(static_cast<unsigned>(std::chrono::year_month_day{day}.day()));
    if (day == style.today) {
      number = u"[" + number + u"]";
    }
    page.WriteDay(day, number, format);
    if (IsDoubtful(day)) {
      page.Write(u"※", {.colour = PageColour::kFaint, .halfPoints = kSmallSize});
    }
  }
  page.EndLine();
}

void WriteLabels(RtfPage& page, const Week& week) {
  for (Day day = week.monday; day < week.end; day += days{1}) {
    page.Tab();
    if (day >= week.first) {
      const Label label = LabelOf(day);
      page.WriteDay(day, label.text, label.format);
    }
  }
  page.EndLine();
}

void WriteHeads(RtfPage& page, bool mondayFirst) {
  page.Write(u"周", {.colour = PageColour::kFaint, .halfPoints = kSmallSize});
  for (int column = 0; column < kDaysOfWeek; ++column) {
    const std::u16string_view name = WeekdayOfColumn(column, mondayFirst);
    page.Tab();
    page.Write(name, {.colour = name == u"六" || name == u"日" ? PageColour::kRest : PageColour::kOrdinary,
                      .bold = true,
                      .halfPoints = 20});
  }
  page.EndLine();
}

void WriteNotes(RtfPage& page, Day first, Day end) {
  page.SetTabs({});
  page.EndLine();
  std::u16string terms;
  std::u16string festivals;
  for (Day day = first; day < end; day += days{1}) {
    if (const std::optional<Term> term = TermOn(day)) {
      terms += (terms.empty() ? u"节气：" : u"，") + std::u16string(TermName(*term)) + u" " + ShortDayText(day) + u" " +
               TimeOf(MomentOf(YearOf(day), *term));
    }
    for (const std::u16string_view name : FestivalsOn(day)) {
      festivals += (festivals.empty() ? u"节日：" : u"，") + std::u16string(name) + u" " + ShortDayText(day);
    }
  }
  for (const std::u16string& line : {terms, festivals, DoubtfulDaysText(first, end)}) {
    if (!line.empty()) {
      page.Write(line, {.halfPoints = kSmallSize});
      page.EndLine();
    }
  }
}

}  // namespace

CalendarPage MonthPage(int year, unsigned month, const PageStyle& style) {
  const Day first = FirstDayOfMonth(year, month);
  const Day end = EndOfMonth(year, month);
  RtfPage page(DecimalText(year) + u"年" + DecimalText(month) + u"月");
  page.SetTabs(TabsOfMonth());
  page.Write(DecimalText(year) + u"年" + DecimalText(month) + u"月", {.bold = true, .halfPoints = kTitleSize});
  page.Write(u"　" + LunarSpanText(first, end - days{1}), {.halfPoints = 20});
  page.EndLine();
  WriteHeads(page, style.mondayFirst);
  for (Day monday = first - days{ColumnOf(first, style.mondayFirst)}; monday < end; monday += days{kDaysOfWeek}) {
    const Week week{
        .monday = monday, .first = std::max(monday, first), .end = std::min(monday + days{kDaysOfWeek}, end)};
    WriteNumbers(page, week, style);
    WriteLabels(page, week);
  }
  WriteNotes(page, first, end);
  return page.Finish();
}

}  // namespace scrivanta
