// A script made relative to a real window, and the lines of a document opened by the programs of their files.
#include "window/driver/Wait.h"
#include "window/driver/WindowProbe.h"
#include "window/driver/WindowTest.h"
#include "windows/FrmRelativeCoordinatesControls.h"

namespace scrivanta {
namespace {

class ScriptTest : public WindowTest {};

TEST_F(ScriptTest, CountsFromAWindowOfTheDesktop) {
  app.Start();
  app.Editor().Insert(u"Click, 500, 300\r\nClick, %x%, 1");
  POINT corner{};
  ClientToScreen(app.MainWindow(), &corner);
  const std::u16string caption = app.Caption();
  app.Menu("mnuZuoBiaoToXiangDuiZuoBiao");
  DialogDriver dialog = app.ExpectDialog(u"绝对坐标转为相对坐标");
  dialog.Choose(CboCaption, caption).Press(CmdConvert);
  app.ExpectBox(
         {.text = u"以下1处含有变量、表达式或区域，没有改动：\n第2行：Click, %x%, 1", .icon = Icon::kInformation})
      .Answer(Answer::kOk);
  dialog.WaitUntilGone();
  const std::string x = std::to_string(500 - corner.x);
  const std::string y = std::to_string(300 - corner.y);
  const std::u16string text = app.Text();
  EXPECT_TRUE(text.starts_with(u"WinActivate, "));
  EXPECT_TRUE(text.ends_with(u"\r\nCoordMode, Pixel, Client\r\nClick, " + std::u16string(x.begin(), x.end()) + u", " +
                             std::u16string(y.begin(), y.end()) + u"\r\nClick, %x%, 1"))
      << Shown(text);
  app.ExpectStatus(u"状态    已转换1个坐标");
}

TEST_F(ScriptTest, TypedPointIsChosenAndCancelLeavesTheDocument) {
  app.Start();
  app.Editor().Insert(u"10,20");
  app.Menu("mnuZuoBiaoToXiangDuiZuoBiao");
  DialogDriver dialog = app.ExpectDialog(u"绝对坐标转为相对坐标");
  dialog.Type(TxtOriginX, u"-5").Type(TxtOriginY, u"5");
  EXPECT_TRUE(dialog.IsChecked(OptBasePoint));
  dialog.Press(IDCANCEL);
  dialog.WaitUntilGone();
  EXPECT_EQ(app.Text(), u"10,20");
  app.Menu("mnuZuoBiaoToXiangDuiZuoBiao");
  DialogDriver again = app.ExpectDialog(u"绝对坐标转为相对坐标");
  again.Type(TxtOriginX, u"-5").Type(TxtOriginY, u"5").Press(CmdConvert);
  again.WaitUntilGone();
  app.ExpectText(u"15,15");
}

TEST_F(ScriptTest, LinesThatAreProgramsRunOnlyAfterTheQuestion) {
  const std::filesystem::path made = folder / "made.txt";
  const std::filesystem::path script = folder.Write("run me.cmd", "@echo x> \"" + Gbk(made.u16string()) + "\"\r\n");
  app.Start();
  app.Editor().Insert(u"\"" + script.u16string() + u"\"\r\n" + (folder / "none.txt").u16string());
  const Message question{.text = u"以下各行的文件不存在，将跳过：\n第2行：" + (folder / "none.txt").u16string() +
                                 u"\n\n以下各行是程序或脚本，打开就会运行：\n第1行：" + script.u16string() +
                                 u"\n\n打开1行？",
                         .buttons = Buttons::kYesNo,
                         .icon = Icon::kWarning,
                         .defaultAnswer = Answer::kNo};
  app.Menu("mnuRunAllLine");
  app.ExpectBox(question).Answer(Answer::kNo);
  EXPECT_FALSE(std::filesystem::exists(made));
  app.Menu("mnuRunAllLine");
  app.ExpectBox(question).Answer(Answer::kYes);
  WaitUntil("the script to have run", [&made] { return std::filesystem::exists(made); });
  app.ExpectStatus(u"状态    已打开1行");
}

}  // namespace
}  // namespace scrivanta
