// What only the shipped program shows, in processes of its own.
#include <windows.h>

#include <algorithm>
#include <string>
#include <vector>

#include "window/driver/ProgramProcess.h"
#include "window/driver/StoredSettings.h"
#include "window/driver/Wait.h"
#include "window/driver/WindowTest.h"

namespace scrivanta {
namespace {

class ProcessTest : public WindowTest {};

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
