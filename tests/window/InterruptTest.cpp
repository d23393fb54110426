// A command that lasts can be watched and stopped.
#include <windows.h>

#include <array>
#include <string>
#include <string_view>
#include <thread>

#include "shell/window/FrmInterruptControls.h"
#include "win/Handles.h"
#include "window/driver/Wait.h"
#include "window/driver/WindowProbe.h"
#include "window/driver/WindowTest.h"

namespace scrivanta {
namespace {

class InterruptTest : public WindowTest {};

// A file that has no end: who reads it works as long as this lives. It is a pipe; whoever looks at it before reading
// it, whether it is a folder and of when it is, takes up a connection too, hence several.
class EndlessFile {
 public:
  EndlessFile() {
    for (OwnedFile& pipe : pipes_) {
      pipe.Reset(CreateNamedPipeW(kPath, PIPE_ACCESS_OUTBOUND, PIPE_TYPE_BYTE | PIPE_NOWAIT, PIPE_UNLIMITED_INSTANCES,
                                  kBlock, 0, 0, nullptr));
    }
    feeder_ = std::jthread([this](const std::stop_token& stop) {
      while (!stop.stop_requested()) {
        Feed();
        Sleep(kPauseMilliseconds);
      }
    });
  }

  std::filesystem::path path() const { return kPath; }

 private:
  static constexpr const wchar_t* kPath = L"\\\\.\\pipe\\ScrivantaEndless.txt";
  // Some megabytes a second: enough to be asked for more all the time, not enough to fill the memory.
  static constexpr DWORD kBlock = 1U << 18U;
  static constexpr DWORD kPauseMilliseconds = 10;

  void Feed() const {
    const std::string block(kBlock, 'x');
    for (const OwnedFile& pipe : pipes_) {
      DWORD written = 0;
      WriteFile(pipe.get(), block.data(), kBlock, &written, nullptr);
    }
  }

  std::array<OwnedFile, 12> pipes_;
  std::jthread feeder_;
};

TEST_F(InterruptTest, LongWorkCanBeStoppedAndLeavesTheDocumentAsItWas) {
  const auto document = folder.Write(u"原稿.txt", Gbk(u"原稿"));
  app.Start(document.u16string());
  const EndlessFile endless;
  const auto expectUntouched = [&] {
    EXPECT_EQ(IsWindowEnabled(app.Editor().window()), TRUE);
    app.ExpectText(u"原稿");
    app.ExpectStatus(document.u16string());
    app.ExpectCaption(u"Scrivanta " + document.u16string());
  };

  app.StartToDrop(endless.path());
  DialogDriver interrupt = app.ExpectInterruptWindow();
  EXPECT_EQ(IsWindowEnabled(app.Editor().window()), FALSE);
  interrupt.Press(CmdStop).WaitUntilGone();
  expectUntouched();

  app.StartToDrop(endless.path());
  app.ExpectInterruptWindow();
  app.Press("Esc");
  expectUntouched();

  app.StartToDrop(endless.path());
  interrupt = app.ExpectInterruptWindow();
  PostMessageW(interrupt.Control(CmdGoOn), BM_CLICK, 0, 0);
  interrupt.WaitUntilGone();
  EXPECT_EQ(IsWindowEnabled(app.Editor().window()), FALSE);
  app.Press("Esc");
  expectUntouched();
}

// The pattern tries every way to cut such a line up, which takes some milliseconds.
std::string SlowLines() {
  std::string lines;
  for (int i = 0; i < 5'000; ++i) {
    lines += std::string(30, 'a') + "b\r\n";
  }
  return lines;
}

void StartToFilterRepeats(App& app) {
  const auto ask = [](std::u16string text, Answer defaultAnswer) {
    return Message{.text = std::move(text),
                   .buttons = Buttons::kYesNoCancel,
                   .icon = Icon::kQuestion,
                   .defaultAnswer = defaultAnswer};
  };
  app.Menu("mnuFilterRepeatLine");
  app.ExpectBox(ask(u"是否用正则方式过滤，选【是】，则每行用正则表达式提取，提取串相同即认为是重复行", Answer::kNo))
      .Answer(Answer::kYes);
  app.AnswerInput({.prompt = u"输入过滤正则式，如提取每行标准号的正则式：[a-su-zA-SU-Z]+|[\\d]+：",
                   .preset = u"[a-su-zA-SU-Z]+|[\\d]+"},
                  u"(a|aa)+$");
  MessageBoxDriver(GetCurrentProcessId(), ask(u"[是]保留一条重复记录，[否]删除所有重复记录，[取消]退出", Answer::kYes),
                   [] {})
      .Answer(Answer::kYes);
}

TEST_F(InterruptTest, ALineCommandShowsHowFarItHasComeAndCanBeStopped) {
  const std::string lines = SlowLines();
  const auto document = folder.Write("slow.txt", lines);
  app.Start(document.u16string());
  const auto expectUntouched = [&] {
    app.ExpectStatus(document.u16string());
    app.ExpectCaption(u"Scrivanta " + document.u16string());
    EXPECT_TRUE(app.Text() == std::u16string(lines.begin(), lines.end()));
  };

  StartToFilterRepeats(app);
  WaitUntil("the command to work", [this] { return IsWindowEnabled(app.Editor().window()) == FALSE; });
  app.Press("Esc");  // before there is an interrupt window
  expectUntouched();

  StartToFilterRepeats(app);
  DialogDriver interrupt = app.ExpectInterruptWindow();
  WaitUntil("the first status panel to show a percentage", [this] {
    const std::u16string status = app.Status();
    return status.starts_with(u"已完成:") && status.ends_with(u"%");
  });
  app.Press("Esc");
  interrupt.WaitUntilGone();
  expectUntouched();
}

TEST_F(InterruptTest, ClosingAWindowWhileACommandRunsAsksWhatToDo) {
  app.Start();
  const EndlessFile endless;
  app.StartToDrop(endless.path());
  const DialogDriver interrupt = app.ExpectInterruptWindow();
  const Message stop{.text = u"命令还在运行，是否中断？",
                     .buttons = Buttons::kYesNo,
                     .icon = Icon::kQuestion,
                     .systemModal = true};  // as topmost as the window it belongs to
  // Without waiting for the command, which goes on.
  const auto answer = [](const Message& question, Answer button) {
    MessageBoxDriver(GetCurrentProcessId(), question, [] {}).Answer(button);
  };
  PostMessageW(interrupt.window(), WM_SYSCOMMAND, SC_CLOSE, 0);
  answer(stop, Answer::kNo);
  EXPECT_EQ(IsWindowEnabled(app.Editor().window()), FALSE) << "the command goes on";

  const Message stopAndClose{
      .text = u"正在处理，是否中断并退出？", .buttons = Buttons::kYesNo, .icon = Icon::kQuestion, .systemModal = true};
  PostMessageW(app.MainWindow(), WM_SYSCOMMAND, SC_CLOSE, 0);
  answer(stopAndClose, Answer::kNo);
  EXPECT_EQ(IsWindowEnabled(app.Editor().window()), FALSE);
  PostMessageW(app.MainWindow(), WM_SYSCOMMAND, SC_CLOSE, 0);
  answer(stopAndClose, Answer::kYes);
  EXPECT_EQ(app.WaitForEnd(), 0);
}

// Chinese with an empty line now and then.
std::string LargeText(std::size_t bytes) {
  const std::string lines = Gbk(u"天地玄黄，宇宙洪荒。日月盈昃，辰宿列张。\r\n\r\n寒来暑往，秋收冬藏。\r\n");
  std::string text;
  while (text.size() < bytes) {
    text += lines;
  }
  return text;
}

TEST_F(InterruptTest, KeysReachTheEditBoxAfterAWorkThatBeganWhileNothingHadTheFocus) {
  app.Start(folder.Write(u"长卷.txt", LargeText(500'000)).u16string());
  app.Type(u"始");
  const DWORD program = GetWindowThreadProcessId(app.MainWindow(), nullptr);
  ASSERT_NE(AttachThreadInput(GetCurrentThreadId(), program, TRUE), FALSE);
  SetFocus(nullptr);
  AttachThreadInput(GetCurrentThreadId(), program, FALSE);
  app.StartMenu("mnuDelEmptyLine");
  WaitUntil("the program to be busy", [&] { return IsWindowEnabled(app.Editor().window()) == FALSE; });
  app.Settle();
  app.Editor().Select({});
  app.Type(u"又");
  EXPECT_TRUE(app.Text().starts_with(u"又始天地玄黄"));
}

TEST_F(InterruptTest, LoadingALargeFileCanBeStopped) {
  const auto document = folder.Write(u"原稿.txt", Gbk(u"原稿"));
  app.Start(document.u16string());
  app.Editor().Select({{1}, 1});
  const HWND box = app.Editor().window();

  app.StartToDrop(folder.Write(u"长卷.txt", LargeText(6'000'000)));
  app.ExpectInterruptWindow().Press(CmdStop).WaitUntilGone();
  app.Settle();
  EXPECT_EQ(app.Editor().window(), box);
  app.ExpectText(u"原稿");
  app.ExpectStatus(document.u16string());
  EXPECT_EQ(app.Editor().SelectedText(), u"稿");
  app.Type(u"纸");
  app.ExpectText(u"原纸");
}

TEST_F(InterruptTest, PuttingAResultBackCanBeStoppedAndSoCanUndoingIt) {
  app.Start(folder.Write(u"长卷.txt", LargeText(500'000)).u16string());
  const std::u16string text = app.Text();
  const auto stop = [&](std::string_view controlName) {
    app.StartMenu(controlName);
    WaitUntil("the program to be busy", [&] { return IsWindowEnabled(app.Editor().window()) == FALSE; });
    app.Press("Esc");
  };
  stop("mnuDelEmptyLine");
  EXPECT_EQ(app.Text(), text);
  EXPECT_FALSE(app.MenuEntry("mnuUndo").enabled);

  app.Menu("mnuDelEmptyLine");
  const std::u16string shorter = app.Text();
  EXPECT_LT(shorter.size(), text.size());
  stop("mnuUndo");
  EXPECT_EQ(app.Text(), shorter);
  EXPECT_FALSE(app.MenuEntry("mnuRedo").enabled);
  app.Menu("mnuUndo");
  EXPECT_EQ(app.Text(), text);
  app.Type(u"始");
  EXPECT_EQ(app.Text(), u"始" + text);
}

}  // namespace
}  // namespace scrivanta
