#include "calendar/CalendarDialog.h"

#include <algorithm>

#include "calendar/DayReport.h"
#include "calendar/LunarCalendar.h"
#include "shell/workbench/FormKey.h"
#include "text/AtomicFile.h"
#include "text/DecimalText.h"
#include "text/Numbers.h"
#include "text/PlatformFile.h"

namespace scrivanta {

namespace {

constexpr std::u16string_view kForm = u"FrmCalendar";
constexpr std::u16string_view kYes = u"1";
constexpr std::u16string_view kNo = u"0";

std::u16string ShowsYearKey() {
  return FormKey(kForm, u"OptYear");
}

std::u16string MondayKey() {
  return FormKey(kForm, u"ChkMonday");
}

// The same day of another month, or its last one.
Day SameDayIn(std::chrono::year_month month, std::chrono::day day) {
  const std::chrono::year_month_day wanted = month / day;
  return wanted.ok() ? Day{wanted} : Day{month / std::chrono::last};
}

Day Moved(Day day, CalendarUnit unit, int number) {
  const std::chrono::year_month_day date{day};
  const std::chrono::year_month month{date.year(), date.month()};
  switch (unit) {
    case CalendarUnit::kMonth:
      return SameDayIn(month + std::chrono::months{number}, date.day());
    case CalendarUnit::kYear:
      return SameDayIn(month + std::chrono::years{number}, date.day());
    default:
      return day + std::chrono::days{number};
  }
}

}  // namespace

void CalendarDialog::Open(CalendarView& view) {
  const Settings& settings = workbench_.settings();
  view.SetOptions(settings.Get(ShowsYearKey()) == kYes, settings.Get(MondayKey()) != kNo);
  if (const std::optional<DialogPlace> place = ReadDialogPlace(settings, kForm)) {
    view.SetPlace(*place);
  }
  view.SetFromBox(DayText(Today()));
  Choose(view, Today());
}

void CalendarDialog::Close(const CalendarView& view) {
  SaveDialogPlace(workbench_.settings(), kForm, view.Place());
}

void CalendarDialog::TakeOptions(CalendarView& view) {
  workbench_.settings().Save(ShowsYearKey(), view.ShowsYear() ? kYes : kNo);
  workbench_.settings().Save(MondayKey(), view.BeginsWithMonday() ? kYes : kNo);
  Refresh(view);
}

void CalendarDialog::Move(CalendarView& view, CalendarUnit unit, int number) {
  Choose(view, std::clamp(Moved(chosen_, unit, number), kFirstDay, kLastDay));
}

void CalendarDialog::GoToToday(CalendarView& view) {
  Choose(view, Today());
}

void CalendarDialog::GoToDate(CalendarView& view) {
  const std::u16string text = view.DateBox();
  if (const std::optional<Day> day = DayOrMessage(ParseDay(text), text)) {
    Choose(view, *day);
  }
}

void CalendarDialog::GoToLunarDate(CalendarView& view) {
  const std::u16string text = view.LunarDateBox();
  if (const std::optional<Day> day = DayOrMessage(ParseLunarDay(text), text)) {
    Choose(view, *day);
  }
}

void CalendarDialog::ChooseAt(CalendarView& view, std::size_t position) {
  const auto found = std::ranges::find_if(page_.days, [position](const DayPlace& place) {
    return position >= place.start && position <= place.start + place.length;
  });
  if (found != page_.days.end() && found->day != chosen_) {
    Choose(view, found->day);
  }
}

void CalendarDialog::Measure(CalendarView& view) {
  const std::optional<Day> from = DayOrMessage(ParseDay(view.FromBox()), view.FromBox());
  const std::optional<Day> to = from ? DayOrMessage(ParseDay(view.ToBox()), view.ToBox()) : std::nullopt;
  if (to) {
    view.SetDistance(DistanceText(*from, *to));
  }
}

void CalendarDialog::AddDays(CalendarView& view) {
  const std::optional<Day> from = DayOrMessage(ParseDay(view.FromBox()), view.FromBox());
  if (!from) {
    return;
  }
  constexpr long long kMost = 1'000'000;  // no day is so far from another
  const Day to = *from + std::chrono::days{std::clamp(LeadingWholeNumber(view.DaysBox()), -kMost, kMost)};
  if (DayOrMessage(IsInCalendar(to) ? std::optional(to) : std::nullopt, view.FromBox() + u" 加 " + view.DaysBox())) {
    view.SetToBox(DayText(to));
    view.SetDistance(DistanceText(*from, to));
    Choose(view, to);
  }
}

void CalendarDialog::Insert(CalendarView& view) {
  const CalendarPage page = PageOf(view, std::nullopt);
  workbench_.editor().ReplaceSelectionByRtf(page.rtf);
  workbench_.ShowStatus(u"已插入 " + page.name + u"日历");
}

void CalendarDialog::Print(CalendarView& view) {
  const CalendarPage page = PageOf(view, std::nullopt);
  view.ShowPage(page);
  try {
    view.Print(page);
  } catch (...) {
    view.ShowPage(page_);
    throw;
  }
  view.ShowPage(page_);
}

void CalendarDialog::Save(CalendarView& view) {
  const CalendarPage page = PageOf(view, std::nullopt);
  const std::filesystem::path file =
      workbench_.prompts().AskForFile({.filter = u"*.rtf", .initialName = page.name + u"日历.rtf"});
  if (file.empty()) {
    return;
  }
  std::error_code error;
  if (std::filesystem::exists(file, error) &&
      workbench_.prompts().Ask({.text = u"文件已存在，是否替换？\n" + TextOfPath(file),
                                .buttons = Buttons::kYesNo,
                                .icon = Icon::kQuestion,
                                .defaultAnswer = Answer::kNo}) != Answer::kYes) {
    return;
  }
  ReplaceFileContent(file, page.rtf);
  workbench_.ShowStatus(u"已存为 " + TextOfPath(file));
}

void CalendarDialog::Choose(CalendarView& view, Day day) {
  chosen_ = day;
  Refresh(view);
}

void CalendarDialog::Refresh(CalendarView& view) {
  page_ = PageOf(view, chosen_);
  view.ShowPage(page_);
  view.ShowDetails(DayDetails(chosen_));
  view.SetDates(DayText(chosen_), LunarDateText(LunarDateOf(chosen_)));
}

CalendarPage CalendarDialog::PageOf(const CalendarView& view, std::optional<Day> chosen) const {
  const PageStyle style{.mondayFirst = view.BeginsWithMonday(), .today = Today(), .chosen = chosen};
  const std::chrono::year_month_day date{chosen_};
  return view.ShowsYear() ? YearPage(YearOf(chosen_), style)
                          : MonthPage(YearOf(chosen_), static_cast<unsigned>(date.month()), style);
}

Day CalendarDialog::Today() const {
  return std::clamp(std::chrono::floor<std::chrono::days>(workbench_.clock().Now()), kFirstDay, kLastDay);
}

std::optional<Day> CalendarDialog::DayOrMessage(const std::optional<Day>& day, const std::u16string& text) {
  if (!day) {
    workbench_.prompts().Ask(
        {.text =
             u"没有这一天：" + text +
             u"\n日历从 1900-01-01 到 2100-12-31。公历写作 2033-12-22，农历写作 2033-闰11-1 或 2033年闰十一月初一。",
         .icon = Icon::kWarning});
  }
  return day;
}

}  // namespace scrivanta
