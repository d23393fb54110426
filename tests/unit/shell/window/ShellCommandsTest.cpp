#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "shell/window/MenuTree.h"
#include "shell/window/ShellCommands.h"
#include "shell/workbench/EditBox.h"
#include "support/ScriptedWorkbench.h"

namespace scrivanta {
namespace {

using testing::ScriptedWorkbench;

class RecordingWindow final : public MainWindow, public EditBox {
 public:
  EditBox& editBox() override { return *this; }
  DocumentFile& documentFile() override { throw std::logic_error("no document"); }
  void KeepPlacement() override { done.emplace_back("keep placement"); }
  void RequestClose() override { done.emplace_back("close"); }
  void SetWordWrap(bool) override {}
  void SetZoom(int) override {}
  void SetLineNumbers(bool) override {}
  void SetColours(ColourChoice) override {}
  void SetKeys(const KeyMap&) override {}
  void OpenEncodingMenu() override {}
  void OpenLineEndsMenu() override {}
  void Undo() override { done.emplace_back("undo"); }
  void Redo() override { done.emplace_back("redo"); }

  void Cut() override { done.emplace_back("cut"); }
  void Copy() override { done.emplace_back("copy"); }
  void Paste() override { done.emplace_back("paste"); }
  void DeleteSelection() override { done.emplace_back("delete"); }
  bool HasEffect(TextEffect) const override { return hasEffect; }
  void SetEffect(TextEffect effect, bool on) override { effects.emplace_back(effect, on); }
  FontDescription Font() const override { return font; }
  void SetFont(const FontDescription& wanted) override { font = wanted; }
  std::optional<FontDescription> AskForFont(const FontDescription& preset) override {
    if (chosenName.empty()) {
      return std::nullopt;
    }
    FontDescription chosen = preset;
    chosen.name = chosenName;
    return chosen;
  }

  std::vector<std::string> done;
  std::vector<std::pair<TextEffect, bool>> effects;
  bool hasEffect = false;
  FontDescription font{.name = u"宋体", .size = 10.5};
  std::u16string chosenName;  // in the platform's dialog, which is cancelled while there is none
};

class ShellCommandsTest : public ::testing::Test {
 protected:
  ShellCommandsTest() { RegisterShellCommands(table, window); }

  void Run(std::string_view controlName) { EXPECT_TRUE(table.Run(controlName, workbench)) << controlName; }
  void ExpectSelection(std::size_t start, std::size_t length) {
    EXPECT_EQ(workbench.editor().Selection(), (TextRange{{start}, length}));
  }

  ScriptedWorkbench workbench;
  RecordingWindow window;
  CommandTable table;
};

TEST_F(ShellCommandsTest, AvailabilityFollowsTheState) {
  const WorkbenchState none;
  const WorkbenchState all = {.hasSelection = true, .canUndo = true, .canRedo = true, .canPaste = true};
  for (const char* name : {"mnuCut", "mnuCopy", "mnudelete", "mnuAllcaps", "mnuUndo", "mnuRedo", "mnuPaste"}) {
    EXPECT_FALSE(table.IsAvailable(name, none)) << name;
    EXPECT_TRUE(table.IsAvailable(name, all)) << name;
    EXPECT_TRUE(MenuCommandId(name)) << name;
  }
  EXPECT_TRUE(table.IsAvailable("mnuSave", none));
  EXPECT_TRUE(table.IsAvailable("mnuSelectAll", none));
}

TEST_F(ShellCommandsTest, WindowCommands) {
  for (const char* name : {"mnuCut", "mnuCopy", "mnuPaste", "mnudelete", "mnuUndo", "mnuRedo", "mnuExit"}) {
    Run(name);
  }
  EXPECT_EQ(window.done, (std::vector<std::string>{"cut", "copy", "paste", "delete", "undo", "redo", "close"}));
}

TEST_F(ShellCommandsTest, EffectsAreToggled) {
  Run("mnuBold");
  window.hasEffect = true;
  Run("mnuItalic");
  Run("mnuUnderline");
  const std::vector<std::pair<TextEffect, bool>> expected = {
      {TextEffect::kBold, true}, {TextEffect::kItalic, false}, {TextEffect::kUnderline, false}};
  EXPECT_EQ(window.effects, expected);
}

TEST_F(ShellCommandsTest, CapitalsKeepTheSelection) {
  workbench.editor().Open(u"ab汉cd", {{1}, 3});
  Run("mnuAllcaps");
  EXPECT_EQ(workbench.editor().Text(), u"aB汉Cd");
  ExpectSelection(1, 3);
  workbench.editor().Open(u"AB", {{0}, 2});
  Run("mnuAllcaps");
  EXPECT_EQ(workbench.editor().changes, 0);
}

TEST_F(ShellCommandsTest, TheFontLineIsAppliedUnlessItIsEmpty) {
  workbench.prompts().Will(std::u16string(u"字号：16|粗体：True"));
  Run("mnuFont");
  EXPECT_EQ(workbench.prompts().inputs.back().preset,
            u"字体：宋体|字号：10.5|颜色：0|粗体：False|斜体：False|下划线：False|删除线：False");
  const FontDescription expected = {.name = u"宋体", .size = 16, .bold = true};
  EXPECT_EQ(window.font, expected);
  workbench.prompts().Will(std::u16string(), [this] {
    const auto& assist = workbench.prompts().inputs.back().assist;
    EXPECT_EQ(assist(u"字号：12"), u"字号：12");
    window.chosenName = u"黑体";
    EXPECT_EQ(assist(u"字号：12"), u"字体：黑体|字号：12|颜色：0|粗体：True|斜体：False|下划线：False|删除线：False");
  });
  Run("mnuFont");
  EXPECT_EQ(window.font, expected);
}

TEST_F(ShellCommandsTest, MarksSelectInBothDirections) {
  workbench.editor().Open(u"0123456789", {{7}, 0});
  Run("mnuSelBegin");
  workbench.editor().SetSelection({{2}, 0});
  Run("mnuSelEnd");
  ExpectSelection(2, 5);
  workbench.editor().SetSelection({{9}, 0});
  Run("mnuSelEnd");
  ExpectSelection(7, 2);
  workbench.editor().Open(u"01", {{1}, 0});  // shorter than the mark
  Run("mnuSelEnd");
  ExpectSelection(1, 1);
}

TEST_F(ShellCommandsTest, SelectAll) {
  workbench.editor().Open(u"a\r\nb");
  Run("mnuSelectAll");
  ExpectSelection(0, 4);
}

TEST_F(ShellCommandsTest, ANewInstanceIsThisProgramAgain) {
  Run("mnuNew");
  EXPECT_EQ(window.done, (std::vector<std::string>{"keep placement"}));
  ASSERT_EQ(workbench.desktop().runs.size(), 1U);
  EXPECT_TRUE(workbench.desktop().runs[0].first.ends_with(u"/program/Scrivanta.exe"));
}

TEST_F(ShellCommandsTest, CalculatorAndHelp) {
  Run("mnuCalculator");
  ASSERT_EQ(workbench.desktop().systemRuns.size(), 1U);
  EXPECT_EQ(workbench.desktop().systemRuns[0].first, u"CALC.EXE");
  Run("mnuHowToUse");
  ASSERT_EQ(workbench.desktop().opened.size(), 1U);
  EXPECT_EQ(workbench.desktop().opened[0], workbench.folders().program / "Scrivanta.rtf");
}

}  // namespace
}  // namespace scrivanta
