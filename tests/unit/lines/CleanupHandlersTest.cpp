#include <gtest/gtest.h>

#include "lines/CaretHandlers.h"
#include "lines/CleanupHandlers.h"
#include "lines/DelLinesDialog.h"
#include "support/ScriptedWorkbench.h"

namespace scrivanta::testing {
namespace {

// A document with a selection marked by brackets.
void OpenMarked(ScriptedEditor& editor, std::u16string text) {
  TextRange selection;
  if (const std::size_t open = text.find(u'['); open != std::u16string::npos) {
    const std::size_t close = text.find(u']');
    selection = {{open}, close - open - 1};
    text.erase(close, 1).erase(open, 1);
  }
  editor.Open(text, selection);
}

// Types into the two boxes and presses the button.
class ScriptedDelLines final : public LineDialogs, public DelLinesView {
 public:
  ScriptedDelLines(std::u16string start, std::u16string end) : start_(std::move(start)), end_(std::move(end)) {}

  void ShowDelLines(DelLinesDialog& dialog) override {
    if (beforeButton) {
      beforeButton();
    }
    if (presses) {
      dialog.Delete(*this);
    }
  }
  void ShowSort(Workbench&) override {}
  std::u16string Start() const override { return start_; }
  std::u16string End() const override { return end_; }
  void SetRange(const std::u16string& start, const std::u16string& end) override {
    start_ = start;
    end_ = end;
  }
  void CloseView() override { closed = true; }

  bool presses = true;
  bool closed = false;
  std::function<void()> beforeButton;

 private:
  std::u16string start_;
  std::u16string end_;
};

void RunCommand(std::string_view command, Workbench& workbench, LineDialogs& dialogs) {
  CommandTable table;
  AddCaretCommands(table);
  AddCleanupCommands(table, dialogs);
  EXPECT_TRUE(table.Run(command, workbench));
}

void RunCommand(std::string_view command, Workbench& workbench) {
  ScriptedDelLines noWindow({}, {});
  RunCommand(command, workbench, noWindow);
}

TEST(CleanupHandlers, ChangeTheDocumentOrTheSelection) {
  struct Case {
    const char* command;
    std::u16string document;
    std::u16string expected;
  };
  const Case cases[] = {
      {"mnuDelEmptyLine", u"", u""},
      {"mnuDelEmptyLine", u"\r\n\r\n", u""},
      {"mnuDelEmptyLine", u"一\r\n\r\n \r\n二\r\n", u"一\r\n \r\n二"},
      {"mnuDelEmptyLine", u"\r\n一[\r\n\r\n二]三\r\n\r\n", u"\r\n一二三\r\n\r\n"},
      {"mnuDelEmptyLine", u"[一\r\n\r\n二\r\n]三", u"一\r\n二\r\n三"},
      {"mnuTrimLine", u"", u""},
      {"mnuTrimLine", u"  一 \t \r\n   \r\n\U00020000  ", u"一 \t\r\n\r\n\U00020000"},
      {"mnuTrimLine", u" a [ b \r\n c] d ", u" a b\r\nc d "},
      {"mnuAddTAB", u"", u""},
      {"mnuAddTAB", u"a\tb\tc\r\nd\r\n", u"a\tb\tc\r\nd\t\t\r\n\t\t"},
      {"mnuAddTAB", u"a\t\t[b\tc\r\nd]e", u"a\t\tb\tc\r\nd\te"},
  };
  for (const Case& c : cases) {
    ScriptedWorkbench workbench;
    OpenMarked(workbench.editor(), c.document);
    RunCommand(c.command, workbench);
    EXPECT_EQ(workbench.editor().Text(), c.expected);
    EXPECT_EQ(workbench.editor().changes, 1);
    EXPECT_EQ(workbench.worksAlive, 0);
  }
}

TEST(CleanupHandlers, LeaveTheirFilesBehind) {
  ScriptedWorkbench workbench;
  workbench.editor().Open(u"一 \r\n\r\nb");
  RunCommand("mnuDelEmptyLine", workbench);
  EXPECT_EQ(workbench.WorkFile("FileAutoSave.txt"), "\xD2\xBB \r\n\r\nb\r\n");
  EXPECT_EQ(workbench.WorkFile("DelEmptyLineOk.txt"), "\xD2\xBB \r\nb\r\n");
  RunCommand("mnuTrimLine", workbench);
  EXPECT_EQ(workbench.WorkFile("TrimLines.TXT"), "\xD2\xBB\r\nb\r\n");
  workbench.editor().SetSelection({{0}, 1});
  RunCommand("mnuAddTAB", workbench);
  EXPECT_EQ(workbench.WorkFile("FileAutoSave.txt"), "\xD2\xBB");
  EXPECT_EQ(workbench.WorkFile("AddTabOK.txt"), "\xD2\xBB\r\n");
}

TEST(CleanupHandlers, PadTabsSaysHowMany) {
  for (const auto& [document, message] :
       {std::pair(u"\t\t\t\r\na", u"各行TAB符均已经加足至3个"), std::pair(u"a\r\nb", u"各行TAB符均已经加足至0个")}) {
    ScriptedWorkbench workbench;
    workbench.editor().Open(document);
    RunCommand("mnuAddTAB", workbench);
    ASSERT_EQ(workbench.prompts().messages.size(), 1U);
    EXPECT_EQ(workbench.prompts().messages[0].text, message);
    EXPECT_EQ(workbench.prompts().messages[0].title, u"提示");
  }
}

TEST(CleanupHandlers, AnInterruptLeavesTheDocument) {
  ScriptedWorkbench workbench;
  workbench.editor().Open(u" a ");
  workbench.interruptAfter = 1;
  RunCommand("mnuTrimLine", workbench);
  EXPECT_EQ(workbench.editor().Text(), u" a ");
  EXPECT_EQ(workbench.editor().changes, 0);
}

TEST(DelLinesDialog, DeletesTheRange) {
  struct Case {
    std::u16string start;
    std::u16string end;
    std::u16string document;
    std::u16string expected;
  };
  const Case cases[] = {
      {u"2", u"3", u"a\r\nb\r\nc\r\nd", u"a\r\nd"},
      {u"1", u"9", u"a\r\nb\r\nc\r\nd", u""},
      {u"2x", u" 3 ", u"a\r\nb\r\nc\r\nd", u"a\r\nd"},
      {u"", u"1", u"a\r\nb", u"b"},
      {u"x", u"y", u"a\r\nb", u"a\r\nb"},
      {u"1.5", u"2.5", u"a\r\nb\r\nc", u"a\r\nc"},
      {u"1", u"1e30", u"a\r\nb", u""},
      {u"1", u"1", u"a[b\r\nc\r\nd]e", u"ac\r\nde"},
      {u"1", u"1", u"", u""},
  };
  for (const Case& c : cases) {
    ScriptedWorkbench workbench;
    OpenMarked(workbench.editor(), c.document);
    ScriptedDelLines window(c.start, c.end);
    RunCommand("mnuDelLineFromXtoY", workbench, window);
    EXPECT_EQ(workbench.editor().Text(), c.expected);
    EXPECT_TRUE(window.closed);
  }
}

TEST(DelLinesDialog, OffersToExchangeTheNumbers) {
  for (const auto& [answer, expected] :
       {std::pair(Answer::kYes, u"a\r\nd"), std::pair(Answer::kNo, u"a\r\nb\r\nc\r\nd")}) {
    ScriptedWorkbench workbench;
    workbench.editor().Open(u"a\r\nb\r\nc\r\nd");
    workbench.prompts().Will(answer);
    ScriptedDelLines window(u"3.7", u"2");
    RunCommand("mnuDelLineFromXtoY", workbench, window);
    EXPECT_EQ(workbench.prompts().messages.at(0).text, u"后数<前数，是否交换！");
    EXPECT_EQ(workbench.prompts().messages.at(0).buttons, Buttons::kYesNo);
    EXPECT_EQ(workbench.editor().Text(), expected);
    EXPECT_EQ(window.Start(), answer == Answer::kYes ? u"2" : u"3.7");
    EXPECT_EQ(window.End(), answer == Answer::kYes ? u"3" : u"2");
  }
}

TEST(DelLinesDialog, ClosedWithoutItsButtonChangesNothing) {
  ScriptedWorkbench workbench;
  workbench.editor().Open(u"a\r\nb");
  ScriptedDelLines window(u"1", u"2");
  window.presses = false;
  RunCommand("mnuDelLineFromXtoY", workbench, window);
  EXPECT_EQ(workbench.editor().changes, 0);
  EXPECT_EQ(workbench.WorkFile("FileAutoSave.txt"), "a\r\nb\r\n");
}

TEST(DelLinesDialog, NeverSeesTheTextOfAnotherInstance) {
  ScriptedWorkbench workbench;
  workbench.editor().Open(u"a\r\nb");
  ScriptedDelLines window(u"1", u"1");
  window.beforeButton = [&] {
    FileSink other(workbench.folders().temporary / "FileAutoSave.txt");
    other.Write("x\r\ny\r\n");
  };
  RunCommand("mnuDelLineFromXtoY", workbench, window);
  EXPECT_EQ(workbench.editor().Text(), u"b");
  EXPECT_EQ(workbench.WorkFile("FileAutoSave.txt"), "a\r\nb\r\n");
}

TEST(CaretHandlers, GotoLineMovesTheCaret) {
  struct Case {
    std::u16string answer;
    std::optional<std::size_t> caret;  // none: the value cannot be used
  };
  const Case cases[] = {{u"1", 0},
                        {u"2", 3},
                        {u" 3rd", 5},
                        {u"4", std::nullopt},
                        {u"0", std::nullopt},
                        {u"-1", std::nullopt},
                        {u"x", std::nullopt},
                        {u"1e20", std::nullopt}};
  for (const Case& c : cases) {
    ScriptedWorkbench workbench;
    OpenMarked(workbench.editor(), u"[a]\r\n\r\nb");
    workbench.prompts().Will(c.answer);
    RunCommand("mnuGotoLine", workbench);
    EXPECT_EQ(workbench.prompts().inputs.at(0).prompt, u"指定要定位的行：");
    if (c.caret) {
      EXPECT_EQ(workbench.editor().Selection(), (TextRange{{*c.caret}, 0}));
      EXPECT_TRUE(workbench.prompts().messages.empty());
    } else {
      EXPECT_EQ(workbench.editor().Selection(), (TextRange{{0}, 1}));
      EXPECT_EQ(workbench.prompts().messages.at(0).text, u"出错了！");
    }
    EXPECT_EQ(workbench.editor().changes, 0);
  }
}

TEST(CaretHandlers, GotoLineCanBeCancelled) {
  ScriptedWorkbench workbench;
  workbench.editor().Open(u"a\r\nb", {{4}, 0});
  workbench.prompts().Will(std::u16string());
  RunCommand("mnuGotoLine", workbench);
  EXPECT_EQ(workbench.editor().Selection(), (TextRange{{4}, 0}));
  EXPECT_TRUE(workbench.prompts().messages.empty());
}

TEST(CaretHandlers, CopyAboveCharTypesWhatStandsAbove) {
  struct Case {
    std::u16string document;  // the caret, or the selection, in brackets
    std::u16string expected;
  };
  const Case cases[] = {
      {u"一二三\r\nab[]cd", u"一二三\r\nab三cd"},
      {u"一二\r\nab[]", u"一二\r\nab"},
      {u"xy\r\nabc\r\n[]", u"xy\r\nabc\r\na"},
      {u"a[]b", u"ab"},
      {u"[]", u""},
      {u"a\U0001F600c\r\n\U0001F600[]", u"a\U0001F600c\r\n\U0001F600\U0001F600"},
      {u"abc\r\nx[yz]", u"abc\r\nxb"},
  };
  for (const Case& c : cases) {
    ScriptedWorkbench workbench;
    OpenMarked(workbench.editor(), c.document);
    RunCommand("mnuCopyAboveChar", workbench);
    EXPECT_EQ(workbench.editor().Text(), c.expected);
    EXPECT_EQ(workbench.editor().changes, c.document.size() - 2 == c.expected.size() ? 0 : 1);
  }
}

}  // namespace
}  // namespace scrivanta::testing
