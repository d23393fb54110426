// Keys and mouse, played into a window of another process.
#include <windows.h>

#include "shell/window/FrmInterruptControls.h"
#include "win/ReportList.h"
#include "window/driver/Keyboard.h"
#include "window/driver/ProgramProcess.h"
#include "window/driver/Wait.h"
#include "window/driver/WindowProbe.h"
#include "window/driver/WindowTest.h"
#include "windows/input/FrmSendInputControls.h"

namespace scrivanta {
namespace {

class SendInputTest : public WindowTest {
 protected:
  DialogDriver OpenWith(const std::u16string& script) {
    app.Menu("mnuSendInput");
    DialogDriver dialog = app.ExpectDialog(u"模拟键盘鼠标");
    dialog.Type(TxtInputScript, script).Type(TxtInputDelay, u"0").Type(TxtInputPause, u"5");
    return dialog;
  }
  // Returns while it plays.
  static void StartToPlay(const DialogDriver& dialog) { PostMessageW(dialog.Control(CmdPlayInput), BM_CLICK, 0, 0); }
  static void ExpectRemark(const DialogDriver& dialog, std::u16string_view beginning) {
    WaitUntil("the dialog to say how it ended", [&] {
      return dialog.IsOpen() && IsWindowEnabled(dialog.window()) != FALSE &&
             dialog.Text(LblInputRemark).starts_with(beginning);
    });
  }
};

TEST_F(SendInputTest, AnotherProgramGetsKeysAndMouse) {
  const ProgramProcess other(u'"' + folder.Write(u"目标.txt", "abcdef\r\n").u16string() + u'"');
  other.ExpectText(u"abcdef\r\n");
  SetWindowPos(other.MainWindow(), nullptr, 40, 60, 700, 500, SWP_NOZORDER | SWP_NOACTIVATE);
  app.Start();
  app.Editor().Insert(
      u"激活 目标.txt\r\n相对 目标.txt\r\n单击 200 200\r\n按键 Ctrl+Home\r\n循环 2\r\n按键 Shift+Right\r\n结束\r\n"
      u"输入 中文 x\r\n按键 Esc\r\n按键 Ctrl+End\r\n按键 回车\r\n按键 Shift+q\r\nF5\r\n移动 30 50\r\n按键 "
      u"Ctrl+F\r\n等待窗口 查找 60");
  app.Menu("mnuSendInput");
  DialogDriver dialog = app.ExpectDialog(u"模拟键盘鼠标");
  dialog.Type(TxtInputDelay, u"0").Type(TxtInputPause, u"1").Press(CmdCheckInput);
  EXPECT_EQ(dialog.Text(LblInputRemark), u"没有错误，可以播放");
  StartToPlay(dialog);
  ExpectRemark(dialog, u"做完了，共15步");
  other.ExpectText(u"中文 xcdef\r\n\r\nQ");
  POINT pointer{};
  GetCursorPos(&pointer);
  POINT expected{30, 50};
  ClientToScreen(other.MainWindow(), &expected);
  EXPECT_EQ(pointer.x, expected.x);
  EXPECT_EQ(pointer.y, expected.y);

  // A fault is told before anything is done.
  dialog.Type(TxtInputScript, u"按键 a\r\n点击 1 1").Press(CmdPlayInput);
  app.ExpectBox(
         {.text = u"第2行的“点击”看不懂：不是动作。\n什么也没有做。", .icon = Icon::kCritical, .systemModal = true})
      .Answer(Answer::kOk);
  other.ExpectText(u"中文 xcdef\r\n\r\nQ");
  dialog.Press(IDCANCEL);
  dialog.WaitUntilGone();
}

TEST_F(SendInputTest, EscAndTheInterruptWindowStopItWhileAnotherProgramIsInFront) {
  const ProgramProcess other(u'"' + folder.Write(u"目标.txt", "").u16string() + u'"');
  app.Start();
  DialogDriver dialog = OpenWith(u"激活 目标.txt\r\n循环 1000000\r\n按键 Shift+a\r\n结束");
  StartToPlay(dialog);
  WaitUntil("keys to arrive", [&] { return other.Text().starts_with(u"AAA"); });
  EXPECT_FALSE(dialog.IsOpen());
  PressKey(VK_ESCAPE);
  ExpectRemark(dialog, u"中途停止，做了");
  EXPECT_EQ(GetAsyncKeyState(VK_SHIFT) & 0x8000, 0);

  StartToPlay(dialog);
  DialogDriver interrupt = app.ExpectInterruptWindow();
  const std::size_t before = other.Text().size();
  WaitUntil("keys to go on arriving", [&] { return other.Text().size() > before + 10; });
  EXPECT_EQ(GetForegroundWindow(), other.MainWindow());
  PostMessageW(interrupt.Control(CmdStop), BM_CLICK, 0, 0);
  ExpectRemark(dialog, u"中途停止，做了");
  const std::u16string text = other.Text();
  EXPECT_EQ(text.find_first_not_of(u'A'), text.npos) << Shown(text);
  dialog.Press(IDCANCEL);
  dialog.WaitUntilGone();
}

}  // namespace
}  // namespace scrivanta
