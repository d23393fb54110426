#include <gtest/gtest.h>

#include "support/ScriptedWorkbench.h"
#include "support/TemporaryFolder.h"
#include "system/RunLines.h"
#include "system/RunLinesHandler.h"
#include "text/DecimalText.h"
#include "text/PlatformFile.h"

namespace scrivanta::testing {
namespace {

using std::chrono::milliseconds;

TEST(RunLines, AreReadAsPeopleWriteThem) {
  TemporaryFolder folder;
  folder.Put("a b.txt", "");
  folder.Put("安装.EXE", "");
  std::filesystem::create_directories(folder.path() / "x.exe");
  const auto variable = [](std::u16string_view name) {
    return name == u"HERE" ? std::optional<std::u16string>(u"a b") : std::nullopt;
  };
  const std::tuple<std::u16string_view, std::u16string_view, RunLineKind> cases[] = {
      {u"  \"a b.txt\"\t", u"a b.txt", RunLineKind::kDocument},
      {u"``a b.txt", u"a b.txt", RunLineKind::kDocument},
      {u"%HERE%.txt", u"a b.txt", RunLineKind::kDocument},
      {u"安装.EXE", u"安装.EXE", RunLineKind::kProgram},
      {u"x.exe", u"x.exe", RunLineKind::kDocument},
      {u"%none%100%.txt", u"%none%100%.txt", RunLineKind::kMissing},
      {u"a b.txt x", u"a b.txt x", RunLineKind::kMissing},
  };
  for (const auto& [text, target, kind] : cases) {
    const auto lines = ReadRunLines(u"\r\n" + std::u16string(text) + u"\r\n \r\n", folder.path(), variable);
    ASSERT_EQ(lines.size(), 1U) << std::string(text.begin(), text.end());
    EXPECT_EQ(lines[0].number, 2U);
    EXPECT_EQ(lines[0].target, folder.path() / PathOfText(target));
    EXPECT_EQ(lines[0].kind, kind) << lines[0].target;
  }
  const auto addresses = ReadRunLines(u"https://例子.cn/a%20b\nmailto:a@b.c\nC:x.txt", folder.path(), variable);
  EXPECT_EQ(addresses[0].target, PathOfText(u"https://例子.cn/a%20b"));
  EXPECT_EQ(addresses[1].kind, RunLineKind::kAddress);
  EXPECT_EQ(addresses[2].kind, RunLineKind::kMissing);
}

class RunAllLines : public ::testing::Test {
 protected:
  RunAllLines() {
    for (int number = 1; number <= 11; ++number) {
      folder.Put(std::to_string(number) + ".txt", "");
    }
    folder.Put("s.cmd", "");
    workbench.document().path = folder.path() / "list.txt";
  }

  TemporaryFolder folder;
  ScriptedWorkbench workbench;
};

TEST_F(RunAllLines, OpensAFewDocumentsWithoutAQuestion) {
  workbench.editor().Open(u"1.txt\r\nnone\r\n2.txt", {{0}, 5});
  mnuRunAllLine(workbench, milliseconds(0));
  EXPECT_EQ(workbench.desktop().opened, (std::vector<std::filesystem::path>{folder.path() / "1.txt"}));
  EXPECT_EQ(workbench.status, u"已打开1行");
  EXPECT_EQ(workbench.WorkFile("RunAllLines.txt"), "1.txt");
  EXPECT_EQ(workbench.editor().changes, 0);
}

TEST_F(RunAllLines, AsksAboutMissingOnesProgramsAndMoreThanTen) {
  const std::u16string inFolder = TextOfPath(folder.path()) + u"/";
  workbench.editor().Open(u"1.txt\r\nnone\r\ns.cmd");
  workbench.prompts().Will(Answer::kNo);
  mnuRunAllLine(workbench, milliseconds(0));
  EXPECT_EQ(workbench.prompts().messages.at(0).text, u"以下各行的文件不存在，将跳过：\n第2行：" + inFolder +
                                                         u"none\n\n以下各行是程序或脚本，打开就会运行：\n第3行：" +
                                                         inFolder + u"s.cmd\n\n打开2行？");
  EXPECT_EQ(workbench.prompts().messages.at(0).defaultAnswer, Answer::kNo);
  EXPECT_TRUE(workbench.desktop().opened.empty());

  std::u16string eleven;
  for (int number = 1; number <= 11; ++number) {
    eleven += DecimalText(number) + u".txt\r\n";
  }
  workbench.editor().Open(eleven);
  workbench.prompts().Will(Answer::kYes);
  mnuRunAllLine(workbench, milliseconds(0));
  EXPECT_EQ(workbench.prompts().messages.at(1).text, u"打开11行？");
  EXPECT_EQ(workbench.desktop().opened.size(), 11U);

  workbench.editor().Open(u"none");
  mnuRunAllLine(workbench, milliseconds(0));
  EXPECT_EQ(workbench.prompts().messages.at(2).buttons, Buttons::kOk);
}

TEST_F(RunAllLines, StopsInThePauseAndListsWhatFailed) {
  workbench.editor().Open(u"1.txt\r\n2.txt\r\n3.txt");
  workbench.desktop().refused = folder.path() / "1.txt";
  workbench.interruptAfter = 4;  // the line, the pause behind it, the next line, the pause behind that
  mnuRunAllLine(workbench, milliseconds(10));
  EXPECT_EQ(workbench.status, u"中途停止，已打开1行");
  EXPECT_EQ(workbench.prompts().messages.at(0).text,
            u"以下1行没有能够打开：\n" + TextOfPath(folder.path() / "1.txt") + u"（文件不存在）");
}

}  // namespace
}  // namespace scrivanta::testing
