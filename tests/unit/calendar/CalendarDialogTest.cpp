// The calendar's pages, and its window's decisions.
#include <gtest/gtest.h>

#include "calendar/CalendarDialog.h"
#include "calendar/LunarCalendar.h"
#include "rtf/RtfText.h"
#include "support/ScriptedWorkbench.h"
#include "text/Encoding.h"

namespace scrivanta {
namespace {

Day D(std::u16string_view text) {
  return ParseDay(text).value_or(kFirstDay);
}

class Controls final : public CalendarView {
 public:
  void ShowPage(const CalendarPage& shown) override { page = shown; }
  void ShowDetails(const std::u16string& text) override { details = text; }
  void SetDates(const std::u16string& newDate, const std::u16string& newLunar) override {
    date = newDate;
    lunarDate = newLunar;
  }
  std::u16string DateBox() const override { return date; }
  std::u16string LunarDateBox() const override { return lunarDate; }
  std::u16string FromBox() const override { return from; }
  std::u16string ToBox() const override { return to; }
  std::u16string DaysBox() const override { return days; }
  void SetFromBox(const std::u16string& text) override { from = text; }
  void SetToBox(const std::u16string& text) override { to = text; }
  void SetDistance(const std::u16string& text) override { distance = text; }
  bool ShowsYear() const override { return showsYear; }
  bool BeginsWithMonday() const override { return monday; }
  void SetOptions(bool year, bool beginsWithMonday) override {
    showsYear = year;
    monday = beginsWithMonday;
  }
  DialogPlace Place() const override { return place; }
  void SetPlace(const DialogPlace& newPlace) override { place = newPlace; }
  void Print(const CalendarPage& what) override { printed = what.text + (page.rtf == what.rtf ? u"" : u"not shown"); }

  CalendarPage page;
  std::u16string details;
  std::u16string date;
  std::u16string lunarDate;
  std::u16string from;
  std::u16string to;
  std::u16string days;
  std::u16string distance;
  std::u16string printed;
  bool showsYear = false;
  bool monday = false;
  DialogPlace place;
};

class CalendarDialogTest : public ::testing::Test {
 protected:
  CalendarDialogTest() {
    workbench.clock().now = D(u"2033-12-21") + std::chrono::hours{23};
    workbench.editor().textOfRtf = [](std::string_view rtf) { return RtfText(rtf).text(); };
    dialog.Open(view);
  }

  testing::ScriptedWorkbench workbench;
  CalendarDialog dialog{workbench};
  Controls view;
};

// What stands at the places of a day, one after the other.
std::u16string AtDay(const CalendarPage& page, Day day) {
  std::u16string counted;  // a line break is one character here
  for (const char16_t c : page.text) {
    counted += c == u'\n' ? u"" : std::u16string(1, c);
  }
  std::u16string found;
  for (const DayPlace& place : page.days) {
    found += place.day == day ? counted.substr(place.start, place.length) + u" " : u"";
  }
  return found;
}

TEST_F(CalendarDialogTest, AMonthIsWrittenAsItIs) {
  const CalendarPage page = MonthPage(2033, 12, {.mondayFirst = true, .today = D(u"2033-12-21"), .chosen = {}});
  EXPECT_TRUE(
      page.text.starts_with(u"2033年12月　癸丑年（牛）十一月至闰十一月\r\n周\t一\t二\t三\t四\t五\t六\t日\r\n"
                            u"48\t\t\t\t1\t2\t3\t4\r\n\t\t\t\t初十\t十一\t十二\t十三\r\n"));
  EXPECT_TRUE(page.text.ends_with(u"\r\n\r\n节气：大雪 12-07 03:44，冬至 12-21 21:45\r\n节日：圣诞节 12-25\r\n"));
  // The rich text says the same.
  EXPECT_EQ(RtfText(page.rtf).text() + u"\r\n", page.text);
  for (const auto& [day, shown] : std::map<std::u16string_view, std::u16string_view>{
           {u"2033-12-21", u"[21] 冬至 "}, {u"2033-12-22", u"22 闰十一月小 "}, {u"2033-12-25", u"25 圣诞节 "}}) {
    EXPECT_TRUE(AtDay(page, D(day)) == shown) << Encode(Encoding::kUtf8, AtDay(page, D(day)));
  }
  const CalendarPage sunday = MonthPage(1900, 1, {.mondayFirst = false});
  EXPECT_TRUE(sunday.text.find(u"周\t日\t一\t二\t三\t四\t五\t六\r\n1\t\t1\t2\t3\t4\t5\t6\r\n\t\t十二月大\t") !=
              std::u16string::npos);
  EXPECT_TRUE(
      MonthPage(2057, 9, {}).text.ends_with(u"09-28 至 09-30 的农历日期或节气离午夜太近，以官方颁布为准。\r\n"));
  // A month begins on the first day of a nine, and another has all of the days.
  EXPECT_NE(MonthPage(2100, 12, {}).text.find(u"十二月小\r\n"), std::u16string::npos);
  EXPECT_NE(MonthPage(1900, 2, {}).text.find(u"庚子年（鼠）正月\r\n"), std::u16string::npos);
}

TEST_F(CalendarDialogTest, AYearHoldsEveryDayOnceAndSaysTheRest) {
  const CalendarPage page = YearPage(2033, {.mondayFirst = true});
  ASSERT_EQ(page.days.size(), 365U);
  EXPECT_EQ(AtDay(page, D(u"2033-02-28")), u"28 ");
  EXPECT_EQ(RtfText(page.rtf).text() + u"\r\n", page.text);
  for (const std::u16string_view part : {u"闰十一月小 12-22起", u"冬至 12-21 21:45", u"01-30 除夕", u"01-31 春节"}) {
    EXPECT_NE(page.text.find(part), std::u16string::npos) << Encode(Encoding::kUtf8, part);
  }
  EXPECT_EQ(YearPage(1900, {}).days.size(), 365U);
  EXPECT_EQ(YearPage(2096, {}).days.size(), 366U);
}

TEST_F(CalendarDialogTest, GoesWhereItIsTold) {
  EXPECT_EQ(view.date, u"2033-12-21");
  EXPECT_EQ(view.lunarDate, u"2033年十一月三十");
  view.lunarDate = u"2033-闰11-1";
  dialog.GoToLunarDate(view);
  EXPECT_EQ(view.date, u"2033-12-22");
  EXPECT_TRUE(view.details.starts_with(u"2033-12-22 星期四"));
  view.date = u"2032-02-29";
  dialog.GoToDate(view);
  EXPECT_EQ(view.page.name, u"2032年2月");
  dialog.Move(view, CalendarUnit::kYear, 1);
  EXPECT_EQ(view.date, u"2033-02-28");
  dialog.Move(view, CalendarUnit::kMonth, -1);
  dialog.Move(view, CalendarUnit::kDay, 7);
  EXPECT_EQ(view.date, u"2033-02-04");
  const DayPlace place = view.page.days[20];
  dialog.ChooseAt(view, place.start + 1);
  EXPECT_EQ(view.date, DayText(place.day));
  dialog.GoToToday(view);
  EXPECT_EQ(view.date, u"2033-12-21");
  dialog.Move(view, CalendarUnit::kYear, 1000);
  EXPECT_EQ(view.date, u"2100-12-31");
  dialog.Move(view, CalendarUnit::kDay, 1);
  EXPECT_EQ(view.date, u"2100-12-31");

  view.lunarDate = u"2033-闰10-1";
  dialog.GoToLunarDate(view);
  ASSERT_EQ(workbench.prompts().messages.size(), 1U);
  EXPECT_TRUE(workbench.prompts().messages[0].text.starts_with(u"没有这一天：2033-闰10-1\n"));
  EXPECT_EQ(view.date, u"2100-12-31");
}

TEST_F(CalendarDialogTest, CountsBetweenDays) {
  EXPECT_EQ(view.from, u"2033-12-21");
  view.to = u"2034-02-19";
  dialog.Measure(view);
  EXPECT_EQ(view.distance, u"2033-12-21 到 2034-02-19：60 天（8 周零 4 天）");
  view.days = u"-365";
  dialog.AddDays(view);
  EXPECT_EQ(view.to, u"2032-12-21");
  EXPECT_EQ(view.date, u"2032-12-21");
  view.days = u"99999999999999999999";
  dialog.AddDays(view);
  EXPECT_EQ(workbench.prompts().messages.size(), 1U);
  EXPECT_EQ(view.date, u"2032-12-21");
}

TEST_F(CalendarDialogTest, PutsThePageIntoTheDocumentOnPaperAndIntoAFile) {
  workbench.editor().Open(u"前后", {{1}, 0});
  const std::string chosen = view.page.rtf;
  dialog.Insert(view);
  EXPECT_EQ(workbench.editor().changes, 1);
  EXPECT_TRUE(workbench.editor().Text().starts_with(u"前2033年12月"));
  EXPECT_TRUE(workbench.editor().Text().ends_with(u"后"));
  EXPECT_EQ(workbench.status, u"已插入 2033年12月日历");

  dialog.Move(view, CalendarUnit::kDay, 1);
  dialog.Print(view);
  EXPECT_TRUE(view.printed.starts_with(u"2033年12月"));
  EXPECT_TRUE(view.printed.find(u"not shown") == std::u16string::npos);
  EXPECT_NE(view.page.rtf, workbench.editor().rtf) << "the chosen day is marked again";

  const testing::TemporaryFolder folder;
  const std::filesystem::path file = folder.path() / "calendar.rtf";
  workbench.prompts().Will(file);
  dialog.Save(view);
  EXPECT_EQ(ReadWholeFile(file), workbench.editor().rtf);
  dialog.Move(view, CalendarUnit::kMonth, 1);
  workbench.prompts().Will(file);
  workbench.prompts().Will(Answer::kNo);
  dialog.Save(view);
  EXPECT_EQ(ReadWholeFile(file), workbench.editor().rtf);
}

TEST_F(CalendarDialogTest, KeepsHowItIsShown) {
  EXPECT_TRUE(view.monday && !view.showsYear);
  view.SetOptions(true, false);
  dialog.TakeOptions(view);
  EXPECT_EQ(view.page.name, u"2033年");
  view.place = {300, 400};
  dialog.Close(view);
  Controls next;
  CalendarDialog(workbench).Open(next);
  EXPECT_TRUE(next.showsYear && !next.monday);
  EXPECT_EQ(next.place, (DialogPlace{300, 400}));
}

}  // namespace
}  // namespace scrivanta
