#include <gtest/gtest.h>

#include "shell/window/FormatChoices.h"
#include "shell/window/StatusPanels.h"
#include "support/ScriptedWorkbench.h"
#include "support/StringView.h"
#include "text/Encoding.h"

namespace scrivanta {
namespace {

using testing::ScriptedWorkbench;
using testing::StringView;

class StatusPanelsTest : public ::testing::Test {
 protected:
  std::u16string Panel(StatusPanel panel, std::u16string_view text, ControlRange selection) {
    return panels.Describe(LineBreakIndex(text), selection, document)[static_cast<std::size_t>(panel)];
  }
  void Choose(const std::vector<MenuChoice>& choices, std::u16string_view caption) {
    for (const MenuChoice& choice : choices) {
      if (choice.caption == caption) {
        ASSERT_TRUE(choice.isAvailable);
        choice.run();
        return;
      }
    }
    FAIL() << "no such choice";
  }
  std::filesystem::path Load(std::string_view bytes, const char* name = "a.txt") {
    const std::filesystem::path path = folder.Put(name, bytes);
    document.Load(path);
    return path;
  }

  testing::TemporaryFolder folder;
  ScriptedWorkbench workbench;
  StringView view{workbench.editor()};
  DocumentFile document{workbench, view};
  StatusPanels panels;
};

TEST_F(StatusPanelsTest, PlaceIsThatOfTheEndThatMoved) {
  constexpr std::u16string_view kText = u"甲乙丙\r\nab\r\n";
  const auto place = [&](std::size_t start, std::size_t length) {
    return Panel(StatusPanel::kPlace, kText, {{start}, length});
  };
  EXPECT_EQ(place(0, 0), u"行 1，列 1");
  EXPECT_EQ(place(3, 0), u"行 1，列 4");
  EXPECT_EQ(place(7, 0), u"行 3，列 1");
  EXPECT_EQ(place(5, 2), u"行 2，列 2") << "selected backwards";
  EXPECT_EQ(place(5, 2), u"行 2，列 2") << "told again";
  EXPECT_EQ(place(2, 5), u"行 1，列 3");
  EXPECT_EQ(place(2, 4), u"行 2，列 3") << "selected anew";
}

TEST_F(StatusPanelsTest, SelectionIsCountedAsByTheStatistics) {
  constexpr std::u16string_view kText = u"ab\r\nc\r\n";
  const auto selected = [&](std::size_t start, std::size_t length) {
    return Panel(StatusPanel::kSelection, kText, {{start}, length});
  };
  EXPECT_EQ(selected(1, 0), u"");
  EXPECT_EQ(selected(0, 2), u"选中 2 字，1 行");
  EXPECT_EQ(selected(0, 3), u"选中 4 字，1 行");
  EXPECT_EQ(selected(0, 4), u"选中 5 字，2 行");
}

TEST_F(StatusPanelsTest, FormatOfTheDocumentIsNamed) {
  const auto expect = [&](std::u16string_view encoding, std::u16string_view lineEnds) {
    EXPECT_EQ(EncodingName(document), encoding);
    EXPECT_EQ(LineEndsName(document), lineEnds);
  };
  expect(u"GBK", u"CR LF");
  Load("\x81\x30\x84\x36\n");
  expect(u"GB18030", u"LF");
  Load(
      "\xEF\xBB\xBF"
      "a\r");
  expect(u"UTF-8（带标记）", u"CR");
  Load("\xE6\xB1\x89 a\rb\n");
  expect(u"UTF-8", u"行尾不一致");
  Load("{x}", "a.rtf");
  expect(u"RTF", u"");
  EXPECT_FALSE(EncodingChoices(document).front().isAvailable);
  EXPECT_FALSE(LineEndChoices(document).front().isAvailable);
  document.ShowNew(u"x", [](Workbench&) { return SaveOutcome::kSaved; });
  expect(u"加密", u"");
}

TEST_F(StatusPanelsTest, ChangesAndReadingOnlyAreShown) {
  const auto state = [&] { return Panel(StatusPanel::kState, u"", {}); };
  EXPECT_EQ(state(), u"");
  workbench.prompts().Will(Answer::kYes);
  Load(std::string_view("a\0b", 3));
  EXPECT_EQ(state(), u"只读");
  document.NoteChange();
  EXPECT_EQ(state(), u"已修改");
}

TEST_F(StatusPanelsTest, OpensAgainInTheEncodingThatTheUserKnows) {
  const auto path = Load("\xC1\xAA\xCD\xA8\r\n");  // two bytes a character: UTF-8 as well
  EXPECT_EQ(workbench.editor().Text(), u"联通\r\n");
  Choose(EncodingChoices(document), u"&2 按 UTF-8 重新打开");
  EXPECT_EQ(workbench.editor().Text(), Decode(Encoding::kUtf8, "\xC1\xAA\xCD\xA8\r\n"));
  EXPECT_EQ(EncodingName(document), u"UTF-8");

  document.NoteChange();
  workbench.prompts().Will(Answer::kNo);
  Choose(EncodingChoices(document), u"&1 按 GBK（GB18030）重新打开");
  EXPECT_EQ(EncodingName(document), u"UTF-8") << "the changes are not given up";
  workbench.prompts().Will(Answer::kYes);
  Choose(EncodingChoices(document), u"&1 按 GBK（GB18030）重新打开");
  EXPECT_EQ(workbench.editor().Text(), u"联通\r\n");
  EXPECT_FALSE(document.IsChanged());

  // Another program's change is read in that encoding, too.
  Choose(EncodingChoices(document), u"&3 按 UTF-16 LE 重新打开");
  folder.Put("a.txt", std::string_view("a\0\r\0\n\0", 6));
  std::filesystem::last_write_time(path, std::filesystem::file_time_type::clock::now() + std::chrono::seconds(5));
  workbench.prompts().Will(Answer::kYes);
  document.LookAtFile();
  EXPECT_EQ(workbench.editor().Text(), u"a\r\n");
}

TEST_F(StatusPanelsTest, SavesInAnotherEncodingAndWithOtherLineEnds) {
  const auto path = Load("\xBA\xBA\r\n");
  Choose(LineEndChoices(document), u"&2 LF（Linux、macOS）");
  EXPECT_TRUE(document.IsChanged());
  Choose(EncodingChoices(document), u"&D 存为 UTF-8（带标记）");
  EXPECT_EQ(ReadWholeFile(path), "\xEF\xBB\xBF\xE6\xB1\x89\n");
  EXPECT_FALSE(document.IsChanged());

  // What GBK lacks is asked about, and the format stays when nothing is saved.
  workbench.editor().SetText(u"😀");
  document.NoteChange();
  workbench.prompts().Will(Answer::kCancel);
  Choose(EncodingChoices(document), u"&A 存为 GBK");
  EXPECT_EQ(EncodingName(document), u"UTF-8（带标记）");
  Choose(EncodingChoices(document), u"&B 存为 GB18030");
  EXPECT_EQ(ReadWholeFile(path), "\x94\x39\xFC\x36");
  EXPECT_EQ(EncodingName(document), u"GB18030");

  workbench.prompts().Will(std::filesystem::path());
  document.ShowNew(u"x", nullptr);
  Choose(EncodingChoices(document), u"&C 存为 UTF-8");
  EXPECT_EQ(EncodingName(document), u"GBK");
}

TEST(StatusPanelEdges, LeaveThePathHalfOfTheBar) {
  EXPECT_EQ(StatusPanelEdges(1000, 20, {100, 90, 60, 50, 40}), (std::vector<int>{640, 740, 830, 890, 940, -1}));
  EXPECT_EQ(StatusPanelEdges(640, 20, {100, 90, 60, 50, 40}), (std::vector<int>{370, 470, 470, 530, 580, -1}));
  EXPECT_EQ(StatusPanelEdges(100, 20, {100, 90, 60, 50, 40}), (std::vector<int>{80, 80, 80, 80, 80, -1}));
}

}  // namespace
}  // namespace scrivanta
