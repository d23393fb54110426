// What only the shipped program shows, in processes of its own.
#include <windows.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <string>
#include <vector>

#include "shell/window/FrmMain.h"
#include "text/SameFile.h"
#include "win/Handles.h"
#include "win/SystemFolders.h"
#include "window/driver/ProgramProcess.h"
#include "window/driver/StoredSettings.h"
#include "window/driver/Wait.h"
#include "window/driver/WindowProbe.h"
#include "window/driver/WindowTest.h"

namespace scrivanta {
namespace {

class ProcessTest : public WindowTest {};

// The main window of an instance that the first one has started.
HWND ExpectStarted(const ProgramProcess& first) {
  return WaitFor("the window of the instance that was started", [&] {
    const std::vector<HWND> windows = TopWindows(0, kMainWindowClass);
    const auto found = std::ranges::find_if(windows, [&](HWND window) { return window != first.MainWindow(); });
    return found != windows.end() ? *found : nullptr;
  });
}

void CloseStarted(HWND window) {
  PostMessageW(window, WM_SYSCOMMAND, SC_CLOSE, 0);
  WaitUntil("the instance that was started to end", [&] { return IsWindow(window) == FALSE; });
}

std::filesystem::path ProgramOf(HWND window) {
  DWORD processId = 0;
  GetWindowThreadProcessId(window, &processId);
  const OwnedKernelObject process(OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, processId));
  std::array<wchar_t, 1024> path{};
  auto length = static_cast<DWORD>(path.size());
  QueryFullProcessImageNameW(process.get(), 0, path.data(), &length);
  return std::wstring(path.data(), length);
}

TEST_F(ProcessTest, InstancesNumberThemselves) {
  const ProgramProcess first;
  first.ExpectCaption(u"Scrivanta.1");
  {
    const ProgramProcess second;
    second.ExpectCaption(u"Scrivanta.2");
    const ProgramProcess third;
    third.ExpectCaption(u"Scrivanta.3");
    second.Close();
    EXPECT_EQ(second.WaitForEnd(), 0);
    const ProgramProcess next;
    next.ExpectCaption(u"Scrivanta.4");
  }
}

TEST_F(ProcessTest, CommandLineNamesTheDocument) {
  const auto document = folder.Write(u"a b.txt", Gbk(u"正文"));
  for (const std::u16string& commandLine : {document.u16string(), u'"' + document.u16string() + u'"'}) {
    const ProgramProcess program(commandLine);
    program.ExpectText(u"正文");
    program.ExpectCaption(u"Scrivanta " + document.u16string());
    program.Close();
    EXPECT_EQ(program.WaitForEnd(), 0);
  }
}

TEST_F(ProcessTest, InstancesNeverSeeEachOthersText) {
  const ProgramProcess one;
  const ProgramProcess two;
  one.Write(u"甲\r\n\r\n 一");
  two.Write(u"乙\r\n\r\n 二");
  one.Menu("mnuDelEmptyLine");
  two.Menu("mnuDelEmptyLine");
  two.ExpectText(u"乙\r\n 二");
  one.ExpectText(u"甲\r\n 一");
  one.Menu("mnuTrimLine");
  two.Menu("mnuTrimLine");
  one.ExpectText(u"甲\r\n一");
  two.ExpectText(u"乙\r\n二");
}

TEST_F(ProcessTest, PlacementIsKeptBetweenRuns) {
  RECT placed{};
  {
    const ProgramProcess program;
    SetWindowPos(program.MainWindow(), nullptr, 120, 90, 700, 500, SWP_NOZORDER);
    GetWindowRect(program.MainWindow(), &placed);
    program.Close();
    EXPECT_EQ(program.WaitForEnd(), 0);
  }
  const ProgramProcess again;
  RECT found{};
  GetWindowRect(again.MainWindow(), &found);
  EXPECT_TRUE(EqualRect(&placed, &found) != FALSE)
      << found.left << "," << found.top << " " << found.right - found.left << "x" << found.bottom - found.top;
}

TEST_F(ProcessTest, NewStartsAnotherInstanceAtTheSamePlace) {
  const ProgramProcess first;
  SetWindowPos(first.MainWindow(), nullptr, 75, 45, 600, 450, SWP_NOZORDER);
  first.Menu("mnuNew");
  const HWND second = ExpectStarted(first);
  ExpectShown("the caption of the new instance", u"Scrivanta.2", [&] { return TextOf(second); });
  EXPECT_EQ(ProgramOf(second).filename(), L"Scrivanta.exe");
  RECT bounds{};
  WaitUntil("the new instance to stand where the first one does", [&] {
    GetWindowRect(second, &bounds);
    return bounds.left == 75 && bounds.top == 45 && bounds.right == 675 && bounds.bottom == 495;
  });
  EXPECT_EQ(StoredSetting(u"MainLeft"), u"1125");  // twips, 15 a pixel
  EXPECT_EQ(StoredSetting(u"MainHeight"), u"6750");
  CloseStarted(second);
}

// Copies of the program play the calculator's part, the system's and another's of the same name: it can be seen that
// one runs, and which.
TEST_F(ProcessTest, StartsTheCalculatorOfTheSystem) {
  const std::filesystem::path systems = SystemFolder() / L"CALC.EXE";
  std::filesystem::copy_file(ProgramProcess::BuiltProgram(), systems,
                             std::filesystem::copy_options::overwrite_existing);
  std::filesystem::copy_file(ProgramProcess::BuiltProgram(), folder / L"CALC.EXE");
  std::wstring searched(1U << 15U, L'\0');
  searched.resize(GetEnvironmentVariableW(L"PATH", searched.data(), static_cast<DWORD>(searched.size())));
  SetEnvironmentVariableW(L"PATH", (folder.path().wstring() + L";" + searched).c_str());
  const ProgramProcess first;
  first.Menu("mnuCalculator");
  const HWND calculator = ExpectStarted(first);
  EXPECT_TRUE(IsSameFile(ProgramOf(calculator), systems)) << ProgramOf(calculator);
  CloseStarted(calculator);
  WaitUntil("the calculator to end", [&] {
    std::error_code error;
    return std::filesystem::remove(systems, error);
  });
}

TEST_F(ProcessTest, KilledWhileSavingLeavesTheOldFileOrTheNew) {
  const std::string old = Gbk(u"旧文件\r\n");
  std::u16string text;
  for (int line = 0; line < 40'000; ++line) {
    text += u"新的一行，要存的内容\r\n";
  }
  const auto document = folder.Write(u"原稿.txt", old);
  const auto source = folder.Write(u"来源.txt", Gbk(text));
  constexpr std::ptrdiff_t kFiles = 2;

  ProgramProcess program(u'"' + source.u16string() + u'"');
  program.ExpectText(text);
  program.Menu("mnuSaveAs");
  program.ExpectFileDialog().Choose(document);
  program
      .ExpectBox({.text = u"文件已存在：\n" + document.u16string() + u"\n是否替换？",
                  .buttons = Buttons::kYesNo,
                  .icon = Icon::kWarning,
                  .defaultAnswer = Answer::kNo})
      .Answer(Answer::kYes);
  // Killed at the first sign of saving: the file is being written beside its target, or is in place already.
  WaitUntil("the program to save", [&] {
    return std::distance(std::filesystem::directory_iterator(folder.path()), {}) > kFiles || ReadBytes(document) != old;
  });
  program.Kill();
  const std::string found = ReadBytes(document);
  EXPECT_TRUE(found == old || found == Gbk(text)) << found.size() << " bytes";
}

}  // namespace
}  // namespace scrivanta
