// The window of windows and processes, on a window and a process of another program.
#include <windows.h>

#include <commctrl.h>

#include <string>

#include "shell/window/FrmMainControls.h"
#include "window/driver/ProgramProcess.h"
#include "window/driver/Wait.h"
#include "window/driver/WindowProbe.h"
#include "window/driver/WindowTest.h"
#include "windows/desk/FrmWindowsControls.h"

namespace scrivanta {
namespace {

class WindowsTest : public WindowTest {
 protected:
  // The first window of the tree, or the first that stands in it.
  static void Choose(const DialogDriver& dialog, WPARAM which) {
    const HWND tree = dialog.Control(TreeWindows);
    LRESULT item = Send(tree, TVM_GETNEXTITEM, TVGN_ROOT);
    if (which == TVGN_CHILD) {
      item = Send(tree, TVM_GETNEXTITEM, TVGN_CHILD, item);
    }
    ASSERT_NE(item, 0);
    Send(tree, TVM_SELECTITEM, TVGN_CARET, 0);
    Send(tree, TVM_SELECTITEM, TVGN_CARET, item);
  }
  static POINT MiddleOf(HWND window) {
    RECT bounds{};
    GetWindowRect(window, &bounds);
    return {(bounds.left + bounds.right) / 2, (bounds.top + bounds.bottom) / 2};
  }
  static void Mouse(DWORD what) {
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = what;
    SendInput(1, &input, sizeof(input));
  }
};

TEST_F(WindowsTest, WindowOfAnotherProgramIsFoundChangedReadAndEnded) {
  const ProgramProcess other(u'"' + folder.Write(u"目标.txt", Gbk(u"原文")).u16string() + u'"');
  other.ExpectText(u"原文");
  const std::string number = std::to_string(other.processId());
  const std::u16string process(number.begin(), number.end());
  app.Start();
  app.Menu("mnuWindows");
  DialogDriver dialog = app.ExpectDialog(u"窗口与进程");
  dialog.Type(TxtWindowFilter, u"目标.txt scrivantamain");
  Choose(dialog, TVGN_ROOT);
  EXPECT_TRUE(dialog.Text(TxtWindowDetails).starts_with(u"标题：" + other.Caption() + u"\r\n类：ScrivantaMain\r\n"))
      << Shown(dialog.Text(TxtWindowDetails));
  dialog.Press(CmdKeepOnTop);
  EXPECT_NE(GetWindowLongPtrW(other.MainWindow(), GWL_EXSTYLE) & WS_EX_TOPMOST, 0);
  dialog.Press(CmdMoveWindow);
  RECT bounds{};
  GetWindowRect(other.MainWindow(), &bounds);
  const auto text = [](long value) {
    const std::string digits = std::to_string(value);
    return std::u16string(digits.begin(), digits.end());
  };
  app.AnswerInput({.prompt = u"移到哪里、多大（左 上 宽 高，像素）：",
                   .preset = text(bounds.left) + u" " + text(bounds.top) + u" " + text(bounds.right - bounds.left) +
                             u" " + text(bounds.bottom - bounds.top)},
                  u"700 300 500 400");
  GetWindowRect(other.MainWindow(), &bounds);
  EXPECT_TRUE(bounds.left == 700 && bounds.top == 300 && bounds.right == 1200 && bounds.bottom == 700);
  dialog.Press(CmdHideWindow);
  EXPECT_EQ(IsWindowVisible(other.MainWindow()), FALSE);
  EXPECT_TRUE(dialog.IsChecked(ChkHiddenWindows));
  dialog.Press(CmdShowWindow);
  EXPECT_NE(IsWindowVisible(other.MainWindow()), FALSE);

  // The cross, with the mouse.
  const POINT cross = MiddleOf(dialog.Control(ImgWindowCross));
  const POINT target = MiddleOf(GetDlgItem(other.MainWindow(), RichTextBox1));
  SetForegroundWindow(dialog.window());
  WaitUntil("the dialog to be in front", [&] { return GetForegroundWindow() == dialog.window(); });
  SetCursorPos(cross.x, cross.y);
  Mouse(MOUSEEVENTF_LEFTDOWN);
  WaitUntil("the cross to be taken", [&] {
    GUITHREADINFO info{};
    info.cbSize = sizeof(info);
    GetGUIThreadInfo(GetWindowThreadProcessId(dialog.window(), nullptr), &info);
    return info.hwndCapture == dialog.window();
  });
  SetCursorPos(target.x, target.y);
  Mouse(MOUSEEVENTF_LEFTUP);
  WaitUntil("the control below the cross to be chosen", [&] {
    const std::u16string details = dialog.Text(TxtWindowDetails);
    return details.find(u"类：RichEdit50W\r\n") != details.npos && details.find(process) != details.npos;
  });
  app.Settle();
  EXPECT_EQ(dialog.Text(TxtWindowText), u"原文");
  dialog.Type(TxtWindowText, u"改了\r\n的").Press(CmdSetWindowText);
  other.ExpectText(u"改了\r\n的");
  dialog.Press(CmdWindowTextToDocument);

  dialog.Type(TxtWindowFilter, process).Press(CmdProcessesToDocument);
  EXPECT_EQ(dialog.Cell(LstProcesses, 0, 0), u"Scrivanta.exe");
  dialog.ChooseRow(LstProcesses, 0).Press(CmdEndProcess);
  app.ExpectBox({.text = u"结束进程“Scrivanta.exe”（" + process + u"）？\n它没有机会存盘，没有存的内容会丢失。",
                 .buttons = Buttons::kYesNo,
                 .icon = Icon::kQuestion,
                 .defaultAnswer = Answer::kNo})
      .Answer(Answer::kYes);
  EXPECT_EQ(other.WaitForEnd(), 1);
  EXPECT_EQ(dialog.Cell(LstProcesses, 0, 0), u"");
  dialog.Press(IDCANCEL);
  dialog.WaitUntilGone();
  EXPECT_TRUE(app.Text().starts_with(u"改了\r\n的名称\t进程号\t内存\t窗口\t路径\t父进程号\r\nScrivanta.exe\t" +
                                     process + u"\t"))
      << Shown(app.Text());
}

}  // namespace
}  // namespace scrivanta
