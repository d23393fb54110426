#include <functional>

#include <gtest/gtest.h>

#include "support/ScriptedWorkbench.h"
#include "tables/FenLanHandler.h"
#include "tables/JoinHandler.h"
#include "tables/SdfHandler.h"
#include "tables/TableCommands.h"
#include "tables/TableDialogs.h"

namespace scrivanta::testing {
namespace {

// Runs, in the place of a window, what the test would have a person do in it.
class ScriptedTableDialogs final : public TableDialogs {
 public:
  void ShowFenLan(ConversionDialog& dialog) override { onConversion(dialog); }
  void ShowChangeToSDFFile(ConversionDialog& dialog) override { onConversion(dialog); }
  void ShowDataGuanLianHeBin(JoinDialog& dialog) override { onJoin(dialog); }
  void ShowJiaZiMu(InitialsDialog&) override {}
  void ShowMergeFile(MergeDialog&) override {}

  std::function<void(ConversionDialog&)> onConversion;
  std::function<void(JoinDialog&)> onJoin;
};

class TableHandlers : public ::testing::Test {
 protected:
  TableHandlers() { RegisterTableCommands(commands, dialogs); }

  void Run(std::string_view command) { ASSERT_TRUE(commands.Run(command, workbench)); }

  ScriptedWorkbench workbench;
  ScriptedTableDialogs dialogs;
  CommandTable commands;
};

TEST_F(TableHandlers, FenLanPutsItsResultBack) {
  struct Case {
    FenLanChoices choices;
    std::u16string text;
    std::u16string result;
    std::u16string status;
  };
  const Case cases[] = {
      {{.count = u"2", .gap = u"1"}, u"甲\r\n乙\r\n丙丁", u"甲 丙丁\r\n乙", u"已把3行分成2栏"},
      {{.way = FenLanWay::kBack, .count = u"2", .gap = u"1"}, u"甲 丙丁\r\n乙", u"甲\r\n乙\r\n丙丁", u"已还原成3行"},
      {{.count = u"2", .width = u"3", .gap = u"1", .tooWide = TooWide::kCut},
       u"甲乙\r\nb\r\nabcd",
       u"甲  abc\r\nb",
       u"已把3行分成2栏，截断2行：第1、3行"},
      {{.way = FenLanWay::kSplitAtDelimiter, .splitAt = u"逗号"}, u"a,\"b,c\"", u"a\tb,c", u"已拆分1行"},
      {{.way = FenLanWay::kSplitAtPattern, .splitAt = u"\\d"}, u"甲1乙", u"甲\t乙", u"已拆分1行"},
      {{.way = FenLanWay::kSplitAtPositions, .unit = WidthUnit::kCharacters, .splitAt = u"1"},
       u"甲乙",
       u"甲\t乙",
       u"已拆分1行"},
  };
  for (const Case& c : cases) {
    workbench.editor().Open(c.text);
    dialogs.onConversion = [&c](ConversionDialog& dialog) {
      EXPECT_EQ(dialog.PreviewOf(FenLanConversion(c.choices)), c.result + u"\r\n");
      dialog.Run(FenLanConversion(c.choices));
    };
    Run("mnuFenLan");
    EXPECT_EQ(workbench.editor().Text(), c.result);
    EXPECT_EQ(workbench.editor().changes, 1);
    EXPECT_EQ(workbench.status, c.status);
  }
  EXPECT_EQ(workbench.WorkFile("FenLanOK.txt"), Encode(Encoding::kGbk, u"甲\t乙\r\n"));
}

TEST_F(TableHandlers, WhatCannotBeDoneIsToldAndLeavesTheDocument) {
  struct Case {
    Conversion conversion;
    std::u16string message;
  };
  const Case cases[] = {
      {FenLanConversion({.count = u"0"}), u"“栏数”应在1至100000之间。"},
      {FenLanConversion({.way = FenLanWay::kSplitAtPattern}), u"请输入正则表达式。"},
      {FenLanConversion({.way = FenLanWay::kSplitAtDelimiter}), u"请选择或输入分隔符。"},
      {SdfConversion({.isBack = true}), u"请输入各列的宽度，或读入版式。"},
      {SdfConversion({.widths = u"1,2"}),
       u"有2个字段放不下，文本未改动：\n第1行第1列：字段宽2，只允许1\n第2行第3列：没有为这一列指定宽度"},
  };
  workbench.editor().Open(u"甲\tb\r\nc\td\te");
  for (const Case& c : cases) {
    dialogs.onConversion = [&c](ConversionDialog& dialog) {
      EXPECT_EQ(dialog.PreviewOf(c.conversion), c.message);
      dialog.Run(c.conversion);
    };
    Run("mnuChangeToSDFFile");
    EXPECT_EQ(workbench.prompts().messages.back().text, c.message);
    EXPECT_EQ(workbench.editor().changes, 0);
    EXPECT_EQ(workbench.worksAlive, 0);
  }
}

TEST_F(TableHandlers, SdfOfASelectionAndItsLayout) {
  const std::filesystem::path file = workbench.folders().temporary / "layout.txt";
  workbench.editor().Open(u"x\r\n甲\t7\r\nb\t42\r\ny", {{3}, 9});
  SdfChoices choices{.aligns = u"lr"};
  dialogs.onConversion = [&](ConversionDialog& dialog) {
    workbench.prompts().Will(file);
    SaveLayout(dialog, choices);
    dialog.Run(SdfConversion(choices));
  };
  Run("mnuChangeToSDFFile");
  EXPECT_EQ(workbench.editor().Text(), u"x\r\n甲 7\r\nb 42\r\ny");
  EXPECT_EQ(workbench.status, u"已把2条记录转为SDF，共2列");
  EXPECT_EQ(ReadWholeFile(file), "unit gbk\r\n2 l\r\n2 r\r\n");

  workbench.document().texts[file] = u"unit gbk\r\n2 l\r\n2 r\r\n";
  dialogs.onConversion = [&](ConversionDialog& dialog) {
    workbench.prompts().Will(file);
    workbench.prompts().Will(Answer::kNo);  // the file is there already
    SaveLayout(dialog, {.widths = u"9"});
    workbench.prompts().Will(file);
    const auto loaded = LoadLayout(dialog, {.isBack = true});
    ASSERT_TRUE(loaded);
    EXPECT_EQ(loaded->widths, u"2,2");
    dialog.Run(SdfConversion(*loaded));
  };
  workbench.editor().Open(u"甲 7\r\nb 42");
  Run("mnuChangeToSDFFile");
  EXPECT_EQ(workbench.editor().Text(), u"甲\t7\r\nb\t42");
  EXPECT_EQ(ReadWholeFile(file), "unit gbk\r\n2 l\r\n2 r\r\n");
}

TEST_F(TableHandlers, JoinWithATableOfAFile) {
  workbench.document().texts[u"second.csv"] = u"号,名\r\n2,乙\r\n3,丙";
  workbench.editor().Open(u"号\t数\r\n1\t10\r\n2\t20");
  JoinChoices choices{.file = u"second.csv", .secondDelimiter = u"逗号", .key = u"号", .hasHeader = true};
  choices.listsUnmatched = true;
  dialogs.onJoin = [&choices](JoinDialog& dialog) {
    EXPECT_EQ(dialog.PreviewOf({}), u"请选择第二个表的文件。");
    EXPECT_EQ(dialog.PreviewOf(choices), u"号\t数\t名\r\n1\t10\t\r\n2\t20\t乙\r\n");
    dialog.Run(choices);
  };
  Run("mnuDataGuanLianHeBin");
  EXPECT_EQ(workbench.editor().Text(), u"号\t数\t名\r\n1\t10\t\r\n2\t20\t乙");
  EXPECT_EQ(workbench.status, u"关联得到2行；没有配上的：第一表1行，第二表1行");
  EXPECT_EQ(workbench.WorkFile("DataGuanLianOnlyFirst.txt"), Encode(Encoding::kGbk, u"号\t数\r\n1\t10\r\n"));
  EXPECT_EQ(workbench.WorkFile("DataGuanLianOnlySecond.txt"), Encode(Encoding::kGbk, u"号,名\r\n3,丙\r\n"));
  EXPECT_EQ(workbench.desktop().opened.size(), 2U);
}

TEST_F(TableHandlers, AStoppedConversionLeavesTheDocument) {
  workbench.editor().Open(u"a\tb");
  workbench.interruptAfter = 1;
  dialogs.onConversion = [](ConversionDialog& dialog) { dialog.Run(SdfConversion({})); };
  Run("mnuChangeToSDFFile");
  EXPECT_EQ(workbench.editor().Text(), u"a\tb");
  EXPECT_TRUE(workbench.prompts().messages.empty());
}

}  // namespace
}  // namespace scrivanta::testing
