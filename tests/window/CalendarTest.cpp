// The calendar's window.
#include "calendar/FrmCalendarControls.h"
#include "window/driver/TestPrinter.h"
#include "window/driver/WindowTest.h"

namespace scrivanta {
namespace {

TEST_F(WindowTest, CalendarGoesToADayAndPutsItsMonthIntoDocumentFileAndPrinter) {
  const TestPrinter printer(folder);
  app.Start(folder.Write(u"diary.txt", Gbk(u"前后")).u16string());
  app.Editor().Select({{1}, 0});
  app.Menu("mnuCalendar");
  DialogDriver dialog = app.ExpectDialog(u"日历");
  EXPECT_TRUE(dialog.IsChecked(ChkMonday));
  const auto page = [&dialog] { return EditBoxDriver(dialog.Control(RichCalendar)).Text(); };

  dialog.Type(TxtLunarDate, u"2033-闰11-1").Press(CmdGoToLunar);
  EXPECT_EQ(dialog.Text(TxtDate), u"2033-12-22");
  EXPECT_TRUE(page().starts_with(u"2033年12月　癸丑年（牛）十一月至闰十一月\r\n"));
  EXPECT_TRUE(dialog.Text(TxtDetails).starts_with(u"2033-12-22 星期四"));

  dialog.Type(TxtDate, u"2033-02-30").Press(CmdGoTo);
  app.ExpectBox({.text = u"没有这一天：2033-02-30\n日历从 1900-01-01 到 2100-12-31。公历写作 2033-12-22，农历写作 "
                         u"2033-闰11-1 或 2033年闰十一月初一。",
                 .icon = Icon::kWarning})
      .Answer(Answer::kOk);

  dialog.Press(OptYear);
  EXPECT_TRUE(page().starts_with(u"2033年　"));
  dialog.Press(OptMonth).Press(CmdInsert);
  EXPECT_TRUE(app.Text().starts_with(u"前2033年12月　癸丑年"));
  EXPECT_TRUE(app.Text().ends_with(u"后"));
  app.Menu("mnuUndo");
  app.ExpectText(u"前后");

  dialog.Press(CmdPrint);
  DialogDriver order = app.ExpectDialog(u"打印");
  order.Press(IDOK);
  order.WaitUntilGone();
  app.Settle();
  EXPECT_EQ(printer.TakeOutput().pages, 1U);

  dialog.Press(CmdSave);
  app.ChooseFile(folder / u"月历.rtf");
  app.Settle();
  EXPECT_TRUE(ReadBytes(folder / u"月历.rtf").starts_with("{\\rtf1"));

  dialog.Press(ChkMonday).Press(CmdCloseCalendar);
  dialog.WaitUntilGone();
  app.Menu("mnuCalendar");
  dialog = app.ExpectDialog(u"日历");
  EXPECT_FALSE(dialog.IsChecked(ChkMonday));
  // The page has the focus and its keys.
  dialog.Type(TxtDate, u"2033-12-22").Press(CmdGoTo);
  SendMessageW(dialog.window(), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(dialog.Control(RichCalendar)), TRUE);
  for (const char* key : {"Right", "Down", "Left", "Up", "Right"}) {
    app.Press(key);
  }
  app.Settle();
  EXPECT_EQ(dialog.Text(TxtDate), u"2033-12-23");
  app.Press("Esc");
  dialog.WaitUntilGone();
}

}  // namespace
}  // namespace scrivanta
