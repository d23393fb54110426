#include <gtest/gtest.h>

#include "lines/FilterHandlers.h"
#include "lines/OrderHandlers.h"
#include "lines/SortDialog.h"
#include "support/ScriptedWorkbench.h"

namespace scrivanta::testing {
namespace {

using std::literals::operator""s;

const std::u16string kGaps = u"\r\n\r\n\r\n\r\n\r\n\r\n以下为重复de文字行：";

class NoDialogs final : public LineDialogs {
  void ShowDelLines(DelLinesDialog&) override {}
  void ShowSort(Workbench&) override {}
};

void RunCommand(std::string_view command, Workbench& workbench) {
  NoDialogs dialogs;
  CommandTable table;
  AddFilterCommands(table);
  AddOrderCommands(table, dialogs);
  EXPECT_TRUE(table.Run(command, workbench));
}

TEST(FilterHandlers, FilterByKeyword) {
  ScriptedWorkbench workbench;
  workbench.editor().Open(u"xab\r\nAB\r\n\r\nab");
  workbench.settings().Save(u"NeedWordS$", u"old", Store::kRegistry, kFormSection);
  workbench.prompts().Will(u"ab"s);
  workbench.prompts().Will(Answer::kNo);
  RunCommand("mnuFilterNeedLine", workbench);
  EXPECT_EQ(workbench.editor().Text(),
            u"以下行 含有 关键字：ab\r\nxab\r\nab\r\n\r\n========================\r\n"
            u"以下行 不含有 关键字：ab\r\nAB\r\n");
  const InputQuestion& input = workbench.prompts().inputs.at(0);
  EXPECT_EQ(input.prompt, u"输入过滤行关键字：");
  EXPECT_EQ(input.title, u"输入信息");
  EXPECT_EQ(input.preset, u"old");
  const Message& question = workbench.prompts().messages.at(0);
  EXPECT_EQ(question.text, u"关键字是否为正则表达式？");
  EXPECT_EQ(question.title, u"过虑方式");
  EXPECT_EQ(question.buttons, Buttons::kYesNo);
  EXPECT_EQ(question.defaultAnswer, Answer::kNo);
  EXPECT_EQ(workbench.settings().Get(u"NeedWordS$"), u"ab");
  EXPECT_EQ(workbench.WorkFile("FilterAll.txt"),
            workbench.WorkFile("FilterHave.txt") + workbench.WorkFile("FilterNotHave.txt"));
}

TEST(FilterHandlers, FilterASelectionByPattern) {
  ScriptedWorkbench workbench;
  workbench.editor().Open(u"1a1b22\r\nc33", {{1}, 8});
  workbench.prompts().Will(u"\\d+"s);
  workbench.prompts().Will(Answer::kYes);
  RunCommand("mnuFilterNeedLine", workbench);
  EXPECT_EQ(workbench.editor().Text(),
            u"1以下行 含有 关键字：\\d+\r\n1\r\n22\r\n\r\n=========================\r\n"
            u"以下行 不含有 关键字：\\d+\r\n\r\nc33");
}

TEST(FilterHandlers, CancelLeavesEverythingAlone) {
  using Script = std::vector<ScriptedPrompts::ScriptedAnswer>;
  const std::pair<const char*, Script> cases[] = {
      {"mnuFilterNeedLine", {u""s}},
      {"mnuFilterRepeatLine", {Answer::kCancel}},
      {"mnuFilterRepeatLine", {Answer::kYes, u""s}},
      {"mnuFilterRepeatLine", {Answer::kYes, u"a"s, Answer::kCancel}},
      {"mnuFilterRepeatLine", {Answer::kNo, Answer::kCancel}},
      {"mnuFilterRepeatLine", {Answer::kNo, Answer::kYes, Answer::kCancel}},
      {"mnuFilterContinueRepeatLine", {Answer::kCancel}},
  };
  for (const auto& [command, script] : cases) {
    ScriptedWorkbench workbench;
    workbench.editor().Open(u"a\r\na");
    for (const auto& answer : script) {
      workbench.prompts().Will(answer);
    }
    RunCommand(command, workbench);
    EXPECT_EQ(workbench.editor().changes, 0);
    EXPECT_TRUE(std::filesystem::is_empty(workbench.folders().temporary));
  }
}

TEST(FilterHandlers, FilterRepeats) {
  struct Case {
    std::vector<ScriptedPrompts::ScriptedAnswer> answers;
    std::u16string text;
    std::u16string expected;
  };
  const Case cases[] = {
      {{Answer::kNo, Answer::kYes, Answer::kNo},
       u"x\r\ny\r\nx\r\n\r\n\r\nx",
       u"x\r\ny\r\n\r\n\r\n" + kGaps + u"\r\n\r\nx\r\nx"},
      {{Answer::kNo, Answer::kNo, Answer::kNo},
       u"x\r\ny\r\nx\r\n\r\n\r\nx",
       u"y\r\n\r\n\r\n" + kGaps + u"\r\n\r\nx\r\nx"},
      {{Answer::kNo, Answer::kYes, Answer::kYes}, u"C:\\a\\x\r\nD:\\x", u"C:\\a\\x\r\n" + kGaps + u"\r\n\r\nD:\\x"},
      {{Answer::kYes, u"\\d"s, Answer::kYes}, u"a1\r\nb1\r\nc", u"a1\r\nc\r\n" + kGaps + u"\r\n\r\nb1"},
      {{Answer::kNo, Answer::kYes, Answer::kNo}, u"", kGaps},
  };
  for (const Case& c : cases) {
    ScriptedWorkbench workbench;
    workbench.editor().Open(c.text);
    for (const auto& answer : c.answers) {
      workbench.prompts().Will(answer);
    }
    RunCommand("mnuFilterRepeatLine", workbench);
    EXPECT_EQ(workbench.editor().Text(), c.expected);
  }
}

TEST(FilterHandlers, FilterRepeatsAsksInItsWords) {
  ScriptedWorkbench workbench;
  workbench.prompts().Will(Answer::kYes);
  workbench.prompts().Will(u"a"s);
  workbench.prompts().Will(Answer::kYes);
  RunCommand("mnuFilterRepeatLine", workbench);
  const std::vector<Message>& messages = workbench.prompts().messages;
  EXPECT_EQ(messages.at(0).text, u"是否用正则方式过滤，选【是】，则每行用正则表达式提取，提取串相同即认为是重复行");
  EXPECT_EQ(messages.at(0).defaultAnswer, Answer::kNo);
  EXPECT_EQ(messages.at(1).text, u"[是]保留一条重复记录，[否]删除所有重复记录，[取消]退出");
  EXPECT_EQ(messages.at(1).defaultAnswer, Answer::kYes);
  EXPECT_EQ(workbench.prompts().inputs.at(0).prompt,
            u"输入过滤正则式，如提取每行标准号的正则式：[a-su-zA-SU-Z]+|[\\d]+：");
  EXPECT_EQ(workbench.prompts().inputs.at(0).preset, u"[a-su-zA-SU-Z]+|[\\d]+");
}

TEST(FilterHandlers, FilterConsecutiveRepeats) {
  for (const auto& [answer, expected] : {std::pair(Answer::kYes, u"a\r\nb\r\na\r\n以下为重复de文字行：\r\na"),
                                         std::pair(Answer::kNo, u"b\r\n以下为重复de文字行：\r\na")}) {
    ScriptedWorkbench workbench;
    workbench.editor().Open(u"a\r\na\r\nb\r\na");
    workbench.prompts().Will(answer);
    RunCommand("mnuFilterContinueRepeatLine", workbench);
    EXPECT_EQ(workbench.editor().Text(), expected);
  }
}

TEST(OrderHandlers, ShuffleKeepsAPartialLastLine) {
  ScriptedWorkbench workbench;
  workbench.editor().Open(u"a\r\nbc", {{0}, 4});
  RunCommand("mnuRandOrder", workbench);
  const std::u16string text = workbench.editor().Text();
  EXPECT_TRUE(text == u"a\r\nbc" || text == u"b\r\nac") << workbench.WorkFile("DisplayLike.txt");
}

TEST(OrderHandlers, StatisticsReportsAndChangesNothing) {
  struct Case {
    std::u16string text;
    TextRange selection;
    std::u16string report;
  };
  const Case cases[] = {
      {u"x\r\nab\r\nc", {{3}, 5}, u"当前行号：2\n所选字符数：5\n所选内容 软行数：硬行数 = 2：2"},
      {u"一二三四五\r\n", {}, u"当前行号：1\n全文字符数：7\n全文  软行数：硬行数 = 3：1"},
      {u"", {}, u"当前行号：1\n全文字符数：0\n全文  软行数：硬行数 = 1：0"},
  };
  for (const Case& c : cases) {
    ScriptedWorkbench workbench;
    workbench.editor().wrapWidth = 3;
    workbench.editor().Open(c.text, c.selection);
    RunCommand("mnuStatistics", workbench);
    EXPECT_EQ(workbench.prompts().messages.at(0).text, c.report);
    EXPECT_EQ(workbench.prompts().messages.at(0).title, u"统计字符数");
    EXPECT_EQ(workbench.editor().changes, 0);
  }
}

struct ScriptedSortView final : public SortView {
  std::u16string From() const override { return from; }
  std::u16string To() const override { return to; }
  SortBy By() const override { return by; }
  bool IsDescending() const override { return descending; }
  void SetRange(const std::u16string& newFrom, const std::u16string& newTo) override {
    from = newFrom;
    to = newTo;
  }
  void SetTotal(const std::u16string& newTotal) override { total = newTotal; }

  std::u16string from;
  std::u16string to;
  std::u16string total;
  SortBy by = SortBy::kString;
  bool descending = false;
};

TEST(SortDialog, SortsAgainAndAgain) {
  ScriptedWorkbench workbench;
  workbench.editor().Open(u"c\r\nb\r\na\r\nd");
  SortDialog dialog(workbench);
  ScriptedSortView view;
  dialog.Capture(view);
  EXPECT_EQ(view.total, u"4");
  EXPECT_EQ(view.from + u"-" + view.to, u"1-4");
  view.SetRange(u"2", u"3");
  dialog.Sort(view);
  EXPECT_EQ(workbench.editor().Text(), u"c\r\na\r\nb\r\nd");
  EXPECT_EQ(workbench.status, u"已排序 2 行");
  view.descending = true;
  dialog.Sort(view);
  EXPECT_EQ(workbench.editor().Text(), u"d\r\nb\r\na\r\nc");
  EXPECT_EQ(view.from + u"-" + view.to, u"2-3");
}

TEST(SortDialog, KeepsASelectionSelected) {
  ScriptedWorkbench workbench;
  workbench.editor().Open(u"x10\r\n9y", {{1}, 5});
  SortDialog dialog(workbench);
  ScriptedSortView view;
  dialog.Capture(view);
  view.by = SortBy::kNumber;
  dialog.Sort(view);
  EXPECT_EQ(workbench.editor().Text(), u"x9\r\n10y");
  EXPECT_EQ(workbench.editor().SelectedText(), u"9\r\n10");
}

TEST(SortDialog, BringsTheRangeInsideAndSaysSo) {
  ScriptedWorkbench workbench;
  workbench.editor().Open(u"c\r\nb\r\na");
  SortDialog dialog(workbench);
  ScriptedSortView view;
  dialog.Capture(view);
  view.SetRange(u"0", u"9");
  dialog.Sort(view);
  EXPECT_EQ(workbench.prompts().messages.size(), 1U);
  EXPECT_EQ(view.from + u"-" + view.to, u"1-3");
  EXPECT_EQ(workbench.editor().Text(), u"a\r\nb\r\nc");
}

// Whatever they are doing when the user stops them.
TEST(LineHandlers, LeaveTheDocumentWhereverTheyAreInterrupted) {
  using Script = std::vector<ScriptedPrompts::ScriptedAnswer>;
  const auto sort = [](Workbench& workbench) {
    SortDialog dialog(workbench);
    ScriptedSortView view;
    dialog.Capture(view);
    dialog.Sort(view);
  };
  const auto command = [](std::string_view name) {
    return [name](Workbench& workbench) { RunCommand(name, workbench); };
  };
  const std::pair<std::function<void(Workbench&)>, Script> cases[] = {
      {command("mnuFilterNeedLine"), {u"a"s, Answer::kNo}},
      {command("mnuFilterNeedLine"), {u"a"s, Answer::kYes}},
      {command("mnuFilterRepeatLine"), {Answer::kNo, Answer::kYes, Answer::kNo}},
      {command("mnuFilterRepeatLine"), {Answer::kNo, Answer::kNo, Answer::kNo}},
      {command("mnuFilterRepeatLine"), {Answer::kYes, u"a"s, Answer::kNo}},
      {command("mnuFilterContinueRepeatLine"), {Answer::kNo}},
      {command("mnuRandOrder"), {}},
      {command("mnuStatistics"), {}},
      {sort, {}},
  };
  constexpr char16_t kText[] = u"b\r\na\r\na\r\nc\r\n\r\na";
  for (const auto& [handler, script] : cases) {
    bool wasInterrupted = true;
    for (std::uint64_t report = 1; wasInterrupted; ++report) {
      ScriptedWorkbench workbench;
      workbench.editor().Open(kText);
      for (const auto& answer : script) {
        workbench.prompts().Will(answer);
      }
      workbench.interruptAfter = report;
      try {
        handler(workbench);
      } catch (const Interrupted&) {
        EXPECT_EQ(workbench.reports, report);
      }
      wasInterrupted = workbench.reports >= report;
      if (wasInterrupted) {
        EXPECT_EQ(workbench.editor().Text(), kText);
        EXPECT_EQ(workbench.editor().changes, 0);
      } else {
        EXPECT_GT(report, 2U);
      }
      EXPECT_EQ(workbench.worksAlive, 0);
    }
  }
}

TEST(SortDialog, NeverPutsAnOldTextOverANewOne) {
  ScriptedWorkbench workbench;
  workbench.editor().Open(u"b\r\na");
  SortDialog dialog(workbench);
  ScriptedSortView view;
  dialog.Capture(view);
  workbench.editor().Open(u"z\r\ny\r\nx");
  dialog.Sort(view);
  EXPECT_EQ(workbench.editor().Text(), u"z\r\ny\r\nx");
  EXPECT_EQ(view.total, u"3");
  dialog.Sort(view);
  EXPECT_EQ(workbench.editor().Text(), u"x\r\ny\r\nz");
}

}  // namespace
}  // namespace scrivanta::testing
