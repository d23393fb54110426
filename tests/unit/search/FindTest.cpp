#include <gtest/gtest.h>

#include "rtf/RtfText.h"
#include "search/ComboHistory.h"
#include "search/FileReport.h"
#include "search/FileSearch.h"
#include "search/FindDialog.h"
#include "search/FindNext.h"
#include "search/FindTokens.h"
#include "search/Highlight.h"
#include "search/SearchCommands.h"
#include "search/TextRanges.h"
#include "shell/services/FormState.h"
#include "support/ScriptedWorkbench.h"
#include "text/ExplainedError.h"

namespace scrivanta {
namespace {

using testing::ScriptedWorkbench;

TEST(FindNextInText, GoesOnFromTheLastPlaceAndAroundTheEnd) {
  NoProgress progress;
  struct Step {
    bool up;
    std::size_t position;  // from 1
  };
  const std::u16string text = u"ab中ab\r\nAB";
  FindState state;
  TextRange selection;
  const Step steps[] = {{false, 1}, {false, 4}, {false, 8}, {false, 1}, {true, 8}, {true, 4}, {true, 1}, {true, 8}};
  for (const Step& step : steps) {
    state.searchesUp = step.up;
    const FindNextResult result = FindNextInText(text, selection, u"ab", state, progress);
    EXPECT_EQ(result.position, step.position);
    selection = {{result.position - 1}, 2};
  }
  state.matchesCase = true;
  state.isNewSearch = true;
  EXPECT_EQ(FindNextInText(text, selection, u"AB", state, progress).position, 8U);
  EXPECT_FALSE(state.isNewSearch);
  EXPECT_FALSE(FindNextInText(text, selection, u"aB", state, progress).occurs);
  EXPECT_EQ(FindNextInText(text, selection, u"", state, progress).position, 0U);
}

TEST(FindNextInText, ReachesEveryLineBreak) {
  NoProgress progress;
  const std::u16string text = u"\r\n\r\na\r\n\r\n\r\nb\r\n";
  FindState state;
  TextRange selection;
  for (const std::size_t position : {1U, 3U, 6U, 8U, 10U, 13U, 1U}) {
    EXPECT_EQ(FindNextInText(text, selection, u"\r\n", state, progress).position, position);
    selection = {{position - 1}, 2};
  }
}

TEST(FindNextInEditor, SaysWhenThereIsNoneAndLeavesTheSelection) {
  ScriptedWorkbench workbench;
  workbench.editor().Open(u"abc", {{1}, 1});
  FindState state;
  EXPECT_EQ(FindNextInEditor(workbench, u"x", state), 0U);
  ASSERT_EQ(workbench.prompts().messages.size(), 1U);
  EXPECT_EQ(workbench.prompts().messages[0].text, u"未找到结果");
  EXPECT_EQ(workbench.prompts().messages[0].icon, Icon::kInformation);
  EXPECT_TRUE(workbench.prompts().messages[0].systemModal);
  EXPECT_EQ(workbench.editor().Selection(), (TextRange{{1}, 1}));
}

TEST(FindNext, ByPatternTakesTheNextMatchAfterTheCaret) {
  ScriptedWorkbench workbench;
  workbench.editor().Open(u"中a1\r\nb22\r\n", {});
  FindState state{.findText = u"\\d+", .isRegExp = true};
  const TextRange places[] = {{{2}, 1}, {{6}, 2}, {{2}, 1}};
  for (const TextRange& place : places) {
    EXPECT_TRUE(FindNext(workbench, state));
    EXPECT_EQ(workbench.editor().Selection(), place);
  }
  state.searchesUp = true;
  EXPECT_TRUE(FindNext(workbench, state));
  EXPECT_EQ(workbench.editor().Selection(), (TextRange{{6}, 2}));
  // Empty matches: one a line start, none twice.
  state = {.findText = u"^", .isRegExp = true};
  std::vector<std::size_t> starts;
  workbench.editor().SetSelection({});
  for (int i = 0; i < 5; ++i) {
    FindNext(workbench, state);
    starts.push_back(workbench.editor().Selection().start.value);
  }
  EXPECT_EQ(starts, (std::vector<std::size_t>{5, 10, 0, 5, 10}));
}

TEST(FindNext, SaysWhichOfHowManyItIsAndWhenItGoesAround) {
  struct Step {
    bool up;
    std::u16string_view remark;
  };
  constexpr Step kSteps[] = {{false, u"第 1 处，共 3 处"},
                             {false, u"第 2 处，共 3 处"},
                             {false, u"第 3 处，共 3 处"},
                             {false, u"第 1 处，共 3 处（已到文末，从文首接着找）"},
                             {true, u"第 3 处，共 3 处（已到文首，从文末接着找）"},
                             {true, u"第 2 处，共 3 处"}};
  for (const bool isRegExp : {false, true}) {
    ScriptedWorkbench workbench;
    workbench.editor().Open(u"-中 中\r\n中", {});
    FindState state{.findText = u"中", .isRegExp = isRegExp};
    for (const Step& step : kSteps) {
      state.searchesUp = step.up;
      EXPECT_TRUE(FindNext(workbench, state));
      EXPECT_EQ(workbench.status, step.remark) << isRegExp;
    }
    // The only one is found again and again.
    workbench.editor().Open(u"x中", {});
    state = {.findText = u"中", .isRegExp = isRegExp};
    FindNext(workbench, state);
    EXPECT_EQ(workbench.status, u"第 1 处，共 1 处");
    FindNext(workbench, state);
    EXPECT_EQ(workbench.status, u"第 1 处，共 1 处（已到文末，从文首接着找）");
  }
}

class ScriptedFindView final : public FindView {
 public:
  std::u16string FindBox() const override { return find; }
  std::u16string ReplaceBox() const override { return replace; }
  void SetFindBox(const std::u16string& text, const std::vector<std::u16string>& list) override {
    find = text;
    findList = list;
  }
  void SetReplaceBox(const std::u16string& text, const std::vector<std::u16string>& list) override {
    replace = text;
    replaceList = list;
  }
  bool SearchesUp() const override { return up; }
  bool MatchesCase() const override { return matchesCase; }
  bool IsRegExp() const override { return regExp; }
  bool KeepsFormatting() const override { return keepsFormatting; }
  bool IsInPart() const override { return inPart; }
  void SetInPart(bool isInPart) override { inPart = isInPart; }
  void SetOptions(bool searchesUp, bool caseCounts, bool isRegExp) override {
    up = searchesUp;
    matchesCase = caseCounts;
    regExp = isRegExp;
  }
  std::u16string DropBox() const override { return drop; }
  void SetDropBox(const std::u16string& text) override { drop = text; }
  void SetReplaceTip(const std::u16string& text) override { tip = text; }
  // The user agrees to the whole of it.
  void ShowPreview(ReplacePreview& preview) override {
    class : public PreviewView {
      void ShowFolder(const std::u16string&) override {}
      void ShowRows(const std::vector<PreviewRow>&) override {}
      void ShowTicks() override {}
      void ShowCount(const std::u16string&) override {}
      void EnableReplace(bool) override {}
      void Leave() override {}
    } window;
    preview.Open(window);
    preview.Replace(window);
  }
  DialogPlace Place() const override { return place; }
  void SetPlace(const DialogPlace& newPlace) override { place = newPlace; }
  void MoveOff(const ScreenRect& seen) override { movedOff.push_back(seen); }

  std::u16string find;
  std::u16string replace;
  std::vector<std::u16string> findList;
  std::vector<std::u16string> replaceList;
  bool up = false;
  bool matchesCase = false;
  bool regExp = false;
  bool keepsFormatting = false;
  bool inPart = false;
  std::vector<ScreenRect> movedOff;
  std::u16string drop;
  std::u16string tip;
  DialogPlace place;
};

class NoDialogs final : public SearchDialogs {
  void ShowFind(Workbench&, FindState&, FindDialogFocus) override {}
  void ShowRegularTest(Workbench&) override {}
};

void RunCommand(std::string_view command, Workbench& workbench) {
  NoDialogs dialogs;
  CommandTable table;
  RegisterSearchCommands(table, dialogs);
  EXPECT_TRUE(table.Run(command, workbench));
}

class FindDialogTest : public ::testing::Test {
 protected:
  void Fill(std::u16string find, std::u16string replace, bool regExp = false) {
    view.find = std::move(find);
    view.replace = std::move(replace);
    view.regExp = regExp;
  }

  ScriptedWorkbench workbench;
  FindState state;
  FindDialog dialog{workbench, state};
  ScriptedFindView view;
};

TEST_F(FindDialogTest, OpensWithTheSelectionAndBothTokensInTheHistories) {
  workbench.settings().Save(FormListKey(u"FrmFind", u"Combo1"), u"old", Store::kRegistry, kFormSection);
  workbench.editor().Open(u"a\r\n\tb", {{1}, 3});
  dialog.Open(view);
  EXPECT_EQ(view.find, u"<回车换行符><制表符>");
  EXPECT_EQ(view.findList, (std::vector<std::u16string>{u"old", u"<回车换行符>", u"<制表符>"}));
  EXPECT_EQ(workbench.settings().Get(FormListKey(u"FrmFind", u"Combo2")), u"<回车换行符>\r\n<制表符>");
  EXPECT_EQ(view.drop, u"请将文件拖动到此窗口（同时按住Alt键拖曳时，清除原来的数据）或 右击文件-->");
  EXPECT_EQ(view.tip, u"");
  view.regExp = true;
  dialog.TakeOptions(view);
  EXPECT_EQ(view.tip, u"支持如：\\1\\2...正则表达式标签标记");
  dialog.FindNext(view);
  EXPECT_EQ(view.findList.front(), u"<回车换行符><制表符>");
  EXPECT_EQ(workbench.editor().Selection(), (TextRange{{1}, 3}));
}

TEST_F(FindDialogTest, KeepsWhatIsEnteredWhenItIsAskedForAgain) {
  workbench.editor().Open(u"a1 b2", {});
  dialog.Open(view);
  Fill(u"\\d", u"new", true);
  dialog.TakeOptions(view);
  dialog.Drop(view, {"list.txt"}, false);
  dialog.FindNext(view);
  EXPECT_EQ(workbench.editor().SelectedText(), u"1");
  dialog.Reopen(view);
  EXPECT_EQ(view.find, u"\\d") << "a match does not take its pattern's place";
  EXPECT_EQ(view.replace, u"new");
  EXPECT_EQ(view.drop, u"``list.txt");
  workbench.editor().SetSelection({{3}, 2});
  dialog.Reopen(view);
  EXPECT_EQ(view.find, u"b2");
  EXPECT_TRUE(view.regExp);
  workbench.editor().Open(std::u16string(20'000, u'x'), {{0}, 20'000});
  dialog.Reopen(view);
  EXPECT_EQ(view.find, u"b2");

  view.place = {-30, 450};
  dialog.Close(view);
  view.place = {};
  dialog.Open(view);
  EXPECT_EQ(view.place, (DialogPlace{-30, 450}));
}

TEST_F(FindDialogTest, StaysInTheChosenPart) {
  struct Step {
    bool up;
    std::size_t place;
    std::u16string_view remark;
  };
  constexpr Step kSteps[] = {{false, 4, u"第 1 处，共 2 处"},
                             {false, 8, u"第 2 处，共 2 处"},
                             {false, 4, u"第 1 处，共 2 处（已到所选范围末，从所选范围首接着找）"},
                             {true, 8, u"第 2 处，共 2 处（已到所选范围首，从所选范围末接着找）"}};
  for (const bool regExp : {false, true}) {
    workbench.editor().Open(u"字a\r\n字b\r\n字c\r\n字d", {{4}, 8});
    Fill(regExp ? u"^字" : u"字", u"字字", regExp);
    view.inPart = true;
    dialog.TakePart(view);
    EXPECT_EQ(workbench.status, u"只在所选的 2 行中查找、替换");
    for (const Step& step : kSteps) {
      view.up = step.up;
      dialog.FindNext(view);
      EXPECT_EQ(workbench.editor().Selection(), (TextRange{{step.place}, 1})) << regExp;
      EXPECT_EQ(workbench.status, step.remark) << regExp;
    }
    view.up = false;
    // The caret elsewhere is no reason to leave the part, nor is a match there replaced.
    workbench.editor().SetSelection({{12}, 1});
    dialog.Replace(view);
    EXPECT_EQ(workbench.editor().Selection(), (TextRange{{4}, 1})) << regExp;
    dialog.FindAll(view);
    EXPECT_EQ(workbench.status, u"共找到 2 处");
    dialog.ReplaceAll(view);
    EXPECT_EQ(workbench.editor().Text(), u"字a\r\n字字b\r\n字字c\r\n字d") << regExp;
    // The part has grown with what was put in.
    workbench.editor().SetSelection({});
    Fill(u"c", u"C");
    dialog.ReplaceAll(view);
    EXPECT_EQ(workbench.editor().Text(), u"字a\r\n字字b\r\n字字C\r\n字d") << regExp;
    dialog.Close(view);
    EXPECT_EQ(workbench.editor().MarkedPart(), std::nullopt);
  }
}

TEST_F(FindDialogTest, SaysWhenThereIsNoPart) {
  workbench.editor().Open(u"一二\r\n", {});
  Fill(u"一", u"");
  view.inPart = true;
  dialog.TakePart(view);
  EXPECT_FALSE(view.inPart);
  EXPECT_EQ(workbench.prompts().messages.size(), 1U);

  workbench.editor().SetSelection({{0}, 2});
  view.inPart = true;
  dialog.TakePart(view);
  workbench.editor().Open(u"另一个", {});
  dialog.ReplaceAll(view);
  EXPECT_FALSE(view.inPart);
  EXPECT_EQ(workbench.prompts().messages.size(), 2U);
  EXPECT_EQ(workbench.editor().Text(), u"另一个");
  dialog.ReplaceAll(view);
  EXPECT_EQ(workbench.editor().Text(), u"另个");
}

TEST_F(FindDialogTest, FindsTheOtherWayWithoutChangingTheDirection) {
  workbench.editor().Open(u"x x x", {});
  Fill(u"x", u"");
  for (const std::size_t start : {0U, 2U, 4U}) {
    dialog.FindNext(view);
    EXPECT_EQ(workbench.editor().Selection(), (TextRange{{start}, 1}));
  }
  dialog.FindPrevious(view);
  EXPECT_EQ(workbench.editor().Selection(), (TextRange{{2}, 1}));
  EXPECT_FALSE(state.searchesUp);
  dialog.FindNext(view);
  EXPECT_EQ(workbench.editor().Selection(), (TextRange{{4}, 1}));
}

TEST_F(FindDialogTest, ShowsTheHistoriesWhereTheyAreKept) {
  std::u16string shown;
  const auto pointAt = [&shown](const std::u16string& key) { shown = key; };
  dialog.ShowStoredHistories(pointAt);
  EXPECT_EQ(shown, u"HKEY\\FormSaveSetting");
  ASSERT_EQ(workbench.desktop().systemRuns.size(), 1U);
  EXPECT_EQ(workbench.desktop().systemRuns[0].first, u"REGEDIT.EXE");
  workbench.settings().inRegistry = false;
  dialog.ShowStoredHistories(pointAt);
  EXPECT_EQ(workbench.desktop().systemRuns.size(), 1U);
  EXPECT_EQ(workbench.desktop().opened, std::vector{workbench.folders().iniFile});
}

TEST_F(FindDialogTest, ReplacesOnlyASelectionThatIsAMatch) {
  workbench.editor().Open(u"aab", {{0}, 2});
  Fill(u"a", u"xax");
  dialog.Replace(view);
  EXPECT_EQ(workbench.editor().Text(), u"aab");
  EXPECT_EQ(workbench.editor().SelectedText(), u"a");
  workbench.editor().SetSelection({{0}, 1});
  dialog.Replace(view);
  EXPECT_EQ(workbench.editor().Text(), u"xaxab");
  EXPECT_EQ(workbench.editor().Selection(), (TextRange{{3}, 1}));
  // A pattern sees the text around the selection.
  workbench.editor().Open(u"k1=v", {{0}, 2});
  Fill(u"(k)(\\d)(?==)", u"\\2\\1", true);
  dialog.Replace(view);
  EXPECT_EQ(workbench.editor().Text(), u"1k=v");
  // An empty match is replaced where it has been found.
  workbench.editor().Open(u"a\r\nb", {});
  Fill(u"^", u"> ", true);
  dialog.Replace(view);
  EXPECT_EQ(workbench.editor().Selection(), (TextRange{{3}, 0}));
  EXPECT_EQ(workbench.editor().Text(), u"a\r\nb");
  dialog.Replace(view);
  EXPECT_EQ(workbench.editor().Text(), u"a\r\n> b");
}

// What stands right behind the new text is next, in both kinds of search.
TEST_F(FindDialogTest, ReplacesNeighboursStepByStep) {
  struct Case {
    std::u16string text;
    std::u16string find;
    std::u16string replace;
    bool regExp;
    std::u16string result;  // after three replacements
  };
  const Case cases[] = {
      {u"x123 4", u"\\d", u"", true, u"x 4"}, {u"x123 4", u"\\d", u"ab", true, u"xababab 4"},
      {u"aaab", u"a", u"", false, u"b"},      {u"y\r\n\r\n\r\n.\r\n", u"<回车换行符>", u"", false, u"y.\r\n"},
      {u"ab", u"x*", u"-", true, u"-a-b-"},  // an empty match is not found again at its place
  };
  for (const Case& c : cases) {
    workbench.editor().Open(c.text);
    state = {};
    Fill(c.find, c.replace, c.regExp);
    const bool beginsAtStart = c.find == u"x*";
    if (beginsAtStart) {
      workbench.editor().SetSelection({{c.text.size()}, 0});
    }
    for (int i = 0; i < 4; ++i) {
      dialog.Replace(view);  // the first one only finds
    }
    EXPECT_EQ(workbench.editor().Text(), c.result);
  }
}

TEST_F(FindDialogTest, ReplacesAll) {
  struct Case {
    std::u16string text;
    TextRange selection;
    std::u16string find;
    std::u16string replace;
    bool regExp;
    std::u16string result;
    std::u16string status;
  };
  const Case cases[] = {
      {u"a|b|a", {}, u"|", u"$&", false, u"a$&b$&a", u"已替换2处"},
      {u"aAa", {{1}, 2}, u"a", u"x", false, u"axx", u"已替换2处"},
      {u"a\r\nb", {}, u"<回车换行符>", u"<制表符>", false, u"a\tb", u"已替换1处"},
      {u"ab", {}, u"x*", u"-", true, u"-a-b-", u"已替换3处"},
      {u"k1 k2", {}, u"k(\\d)", u"\\1k", true, u"1k 2k", u"已替换2处"},
  };
  for (const Case& c : cases) {
    workbench.editor().Open(c.text, c.selection);
    Fill(c.find, c.replace, c.regExp);
    dialog.ReplaceAll(view);
    EXPECT_EQ(workbench.editor().Text(), c.result);
    EXPECT_EQ(workbench.status, c.status);
    EXPECT_EQ(workbench.editor().changes, 1);
  }
  workbench.editor().Open(u"abc");
  Fill(u"x", u"y");
  dialog.ReplaceAll(view);
  EXPECT_EQ(workbench.editor().changes, 0);
  EXPECT_EQ(workbench.prompts().messages.back().text, u"未找到结果");
}

TEST_F(FindDialogTest, ReplacesAllWithinTheFormatting) {
  workbench.editor().Open(u"par red par");
  workbench.editor().rtf = "{\\rtf1\\ansicpg936 par \\b r\\b0 ed par\\par}";
  workbench.editor().textOfRtf = [](std::string_view rtf) { return RtfText(rtf).text(); };
  view.keepsFormatting = true;
  Fill(u"par", u"b");
  dialog.ReplaceAll(view);
  EXPECT_EQ(workbench.editor().rtf, "{\\rtf1\\ansicpg936 b \\b r\\b0 ed b\\par}");
  EXPECT_EQ(workbench.status, u"已替换2处");
  Fill(u"red", u"x");
  dialog.ReplaceAll(view);
  EXPECT_EQ(workbench.editor().changes, 1);
  EXPECT_EQ(workbench.status, u"已替换0处，另有1处被格式代码分开，未替换");
}

TEST_F(FindDialogTest, ARichTextThatIsNotTakenIsNoSuccess) {
  workbench.editor().Open(u"a");
  workbench.editor().rtf = "{\\rtf1 a}";
  Fill(u"a", u"b");
  view.keepsFormatting = true;
  for (const TextRange selection : {TextRange{}, TextRange{{0}, 1}}) {
    workbench.editor().SetSelection(selection);
    EXPECT_THROW(dialog.ReplaceAll(view), ExplainedError);
  }
  EXPECT_EQ(workbench.status, u"");
}

TEST_F(FindDialogTest, FiltersMatchingLinesToTheTop) {
  workbench.editor().Open(u"b\r\na.x\r\nc\r\na.y");
  Fill(u"a.", u"");
  dialog.Filter(view);
  EXPECT_EQ(workbench.editor().Text(), u"a.x\r\na.y\r\nb\r\nc");
  Fill(u"^.*[bc].*$", u"", true);
  dialog.Filter(view);
  EXPECT_EQ(workbench.editor().Text(), u"b\r\nc\r\na.x\r\na.y");
  // The end of the text stays as it is.
  workbench.editor().Open(u"x\r\n\r\ny|\r\n");
  Fill(u"|", u"");
  dialog.Filter(view);
  EXPECT_EQ(workbench.editor().Text(), u"y|\r\nx\r\n\r\n");
}

TEST_F(FindDialogTest, FindsAllInRedBold) {
  workbench.editor().Open(u"a|b\r\nA|", {{1}, 1});
  std::u16string shown;
  workbench.editor().textOfRtf = [](std::string_view rtf) { return RtfText(rtf).text(); };
  Fill(u"a|", u"");
  dialog.FindAll(view);
  EXPECT_EQ(workbench.editor().Text(), u"a|b\r\nA|");
  EXPECT_TRUE(
      workbench.editor().rtf.ends_with("\\fs21 \r\n\\cf2\\b a|\\cf1\\b0 b\\par \r\n\\cf2\\b A|\\cf1\\b0 \\par \r\n}"));
  EXPECT_EQ(workbench.editor().Selection(), (TextRange{{1}, 1}));
  EXPECT_EQ(workbench.WorkFile("HaveRtf.rtf"), workbench.editor().rtf);
}

TEST_F(FindDialogTest, SearchesAndReplacesInFiles) {
  testing::TemporaryFolder folder;
  std::filesystem::create_directory(folder.path() / "sub");
  std::filesystem::create_directory_symlink(folder.path(), folder.path() / "sub" / "loop");
  const auto has = folder.Put("b.txt", "x\nfind find `` me\n");
  const auto gbk = folder.Put("sub/a.TXT", "\xD6\xD0\r\nFind");
  const auto hasNot = folder.Put("c.txt", "nothing");
  folder.Put("d.bin", std::string("find\0\0\0\0", 8));
  folder.Put("e.log", "find");
  workbench.editor().Open(u"text");
  Fill(u"find", u"gone");
  workbench.prompts().Will(folder.path());
  workbench.prompts().Will(std::u16string(u"*.txt;*.bin"));
  dialog.SearchInFiles(view);
  const std::u16string expected = u"text\r\n以下文件 含有 查找内容：find（2个文件）\r\n``" + has.u16string() +
                                  u"\r\n    2处，第2行：find find ` ` me\r\n``" + gbk.u16string() +
                                  u"\r\n    1处，第2行：Find\r\n\r\n以下文件 不含有 查找内容：find（1个文件）\r\n``" +
                                  hasNot.u16string() + u"\r\n\r\n跳过二进制文件：1个\r\n";
  EXPECT_EQ(workbench.editor().Text(), expected);
  EXPECT_EQ(workbench.prompts().messages.back().text, u"全部完成！");
  EXPECT_EQ(workbench.editor().Selection().start.value, 6U);
  workbench.prompts().Will(std::filesystem::path());
  dialog.SearchInFiles(view);
  EXPECT_EQ(workbench.prompts().folders.back().initialFolder, folder.path());
  EXPECT_EQ(workbench.editor().Text(), expected) << "cancelled";

  // On the line of a place that place is shown here, on any other its file elsewhere.
  const std::size_t place = expected.find(u"    2处");
  EXPECT_EQ(PlaceAt(expected, place - 2), std::nullopt);
  EXPECT_EQ(PlaceAt(expected, expected.find(u"跳过")), std::nullopt);
  workbench.editor().SetSelection({{place + 7}, 0});
  RunCommand("mnuGoToThis", workbench);
  ASSERT_EQ(workbench.document().opened.size(), 1U);
  EXPECT_EQ(workbench.document().opened[0], std::pair(has, 2LL));
  workbench.editor().SetSelection({});

  workbench.prompts().Will(Answer::kYes);
  dialog.ReplaceInFiles(view);
  EXPECT_EQ(workbench.prompts().messages.back().text, u"已全部替换！");
  EXPECT_EQ(ReadWholeFile(has), "x\ngone gone `` me\n");
  EXPECT_EQ(ReadWholeFile(gbk), "\xD6\xD0\r\ngone");
  EXPECT_EQ(ReadWholeFile(folder.path() / "e.log"), "find");
}

TEST_F(FindDialogTest, TakesPathsThatAreTypedToo) {
  testing::TemporaryFolder folder;
  const auto has = folder.Put("b.txt", "find");
  view.drop = u"请将文件拖动到此窗口\r  " + has.u16string() + u" \r" + folder.path().u16string() + u"/none.txt";
  Fill(u"find", u"gone");
  workbench.prompts().Will(Answer::kYes);
  dialog.ReplaceInFiles(view);
  EXPECT_EQ(ReadWholeFile(has), "gone");
}

TEST_F(FindDialogTest, AppendsTheReportWithoutRebuildingTheDocument) {
  testing::TemporaryFolder folder;
  folder.Put("a.txt", "find");
  workbench.editor().Open(u"formatted", {{0}, 4});
  workbench.editor().rtf = "{\\rtf1 formatted}";
  Fill(u"find", u"");
  workbench.prompts().Will(folder.path());
  workbench.prompts().Will(std::u16string(u"*.*"));
  dialog.SearchInFiles(view);
  EXPECT_EQ(workbench.editor().rtf, "{\\rtf1 formatted}");
  EXPECT_TRUE(workbench.editor().Text().starts_with(u"formatted\r\n以下文件 含有"));
  EXPECT_EQ(workbench.editor().Selection().start.value, 11U);
}

// What is searched is what is replaced, and what is left is named.
TEST_F(FindDialogTest, ReplacesListsInFilesAndTellsWhatIsLeft) {
  testing::TemporaryFolder folder;
  const auto plain = folder.Put("1.txt", "cat dog|");
  const auto rich = folder.Put("2.rtf", "{\\rtf1\\ansi cat d\\b o\\b0 g\\par}");
  const auto binary = folder.Put("3.bin", std::string("cat\0\0\0\0", 7));
  folder.Put("4.txt", "bird");
  dialog.Drop(view, {folder.path(), plain}, false);
  Fill(u"cat|dog", u"CAT|DOG");
  workbench.prompts().Will(std::u16string(u"*.*"));
  dialog.SearchInFiles(view);
  EXPECT_NE(workbench.editor().Text().find(u"    2处，第1行：cat dog|"), std::u16string::npos);
  workbench.prompts().Will(std::u16string(u"*.*"));
  workbench.prompts().Will(Answer::kYes);
  dialog.ReplaceInFiles(view);
  EXPECT_EQ(workbench.prompts().messages[workbench.prompts().messages.size() - 2].text,
            u"将在2个文件中替换3处。替换前的文件会留到下一次替换，在此之前可以用【撤消文件替换】还原。\n是否继续？");
  EXPECT_EQ(workbench.prompts().messages.back().text, u"没有全部替换。\n以下文件没有替换，或没有全部替换：\n" +
                                                          rich.u16string() + u"：有1处被格式代码分开\n" +
                                                          binary.u16string() + u"：不是文本文件");
  EXPECT_EQ(workbench.status, u"已在2个文件中替换3处，另有1处被格式代码分开，未替换");
  EXPECT_EQ(ReadWholeFile(plain), "CAT DOG|");
  EXPECT_EQ(ReadWholeFile(rich), "{\\rtf1\\ansi CAT d\\b o\\b0 g\\par}");
  // Nothing is left, and there was nothing.
  workbench.editor().Open(u"``" + (folder.path() / "4.txt").u16string());
  view.drop.clear();
  dialog.ReplaceInFiles(view);
  EXPECT_EQ(workbench.prompts().messages.back().text, u"未找到结果");
}

TEST_F(FindDialogTest, ReplacesOnceInAPathThatIsListedTwice) {
  testing::TemporaryFolder folder;
  const auto file = folder.Put("1.txt", "a\nb\n");
  const auto other = folder.Put("2.txt", "a");
  const std::u16string list = u"``" + file.u16string() + u"\r\n``" + (folder.path() / "." / "1.txt").u16string() +
                              u"\r\n``" + other.u16string();
  // The selection begins and ends within the first two lines, which it means.
  workbench.editor().Open(list, {{4}, file.u16string().size() + 3});
  Fill(u"^(?=a)", u"a", true);
  workbench.prompts().Will(Answer::kYes);
  dialog.ReplaceInFiles(view);
  EXPECT_EQ(ReadWholeFile(file), "aa\nb\n");
  EXPECT_EQ(ReadWholeFile(other), "a");
  // A line feed of the file is a line break, in the pattern and in what is put there.
  Fill(u"a\\r\\n(b.*)$", u"[\\1]", true);
  workbench.prompts().Will(Answer::kYes);
  dialog.ReplaceInFiles(view);
  EXPECT_EQ(ReadWholeFile(file), "a[b\n]\n");
  EXPECT_EQ(workbench.prompts().messages.back().text, u"已全部替换！");
}

TEST(TextRanges, WholeLinesAreThoseThatTheRangeTouches) {
  const std::u16string_view text = u"ab\r\n\r\ncd";
  const std::pair<TextRange, TextRange> cases[] = {
      {{{0}, 0}, {{0}, 2}}, {{{1}, 1}, {{0}, 2}}, {{{0}, 4}, {{0}, 2}}, {{{0}, 6}, {{0}, 4}},
      {{{4}, 2}, {{4}, 0}}, {{{1}, 6}, {{0}, 8}}, {{{8}, 0}, {{6}, 2}}, {{{4}, 0}, {{4}, 0}},
  };
  for (const auto& [range, lines] : cases) {
    EXPECT_EQ(WholeLines(text, range), lines) << range.start.value << " " << range.length;
  }
}

TEST(ComboHistory, KeepsTheLastFirst) {
  ComboHistory history({u"a", u"b", u"ab"});
  history.PutFirst(u"b");
  history.PutFirst(u"");
  EXPECT_EQ(history.items(), (std::vector<std::u16string>{u"b", u"a", u"ab"}));
  history.MoveToFront(u"a");
  EXPECT_EQ(history.items(), (std::vector<std::u16string>{u"a", u"ab", u"b"}));
}

TEST(Highlight, FindsWordsWhateverTheirCaseAndMergesThem) {
  NoProgress progress;
  EXPECT_EQ(FindWords(u"xABab b", u"ab||B", progress), (std::vector<TextRange>{{{1}, 4}, {{6}, 1}}));
  EXPECT_TRUE(FindWords(u"x", u"|", progress).empty());
}

TEST(SearchCommands, ExtractsAndReplacesByPattern) {
  ScriptedWorkbench workbench;
  workbench.editor().Open(u"a1\r\nb22");
  workbench.prompts().Will(std::u16string(u"\\d+"));
  RunCommand("mnuRegGet", workbench);
  EXPECT_EQ(workbench.editor().Text(), u"1\r\n22");
  EXPECT_EQ(workbench.prompts().inputs[0].prompt, u"输入要寻找的字串（正则表达式）");
  EXPECT_EQ(workbench.WorkFile("FileAutoSave.txt"), "1\r\n22\r\n");
  workbench.prompts().Will(std::u16string(u"^(\\d)"));
  workbench.prompts().Will(std::u16string(u"<\\1>"));
  RunCommand("mnuRegReplace", workbench);
  EXPECT_EQ(workbench.prompts().inputs[1].preset, u"\\d+");
  EXPECT_EQ(workbench.prompts().inputs[2].prompt, u"替换为（取正则表达式中相应括号中的部分用：\\1\\2\\3...）：");
  EXPECT_EQ(workbench.editor().Text(), u"<1>\r\n<2>2");
}

TEST(SearchCommands, ASelectionOfWholeLinesKeepsItsLastLineBreak) {
  ScriptedWorkbench workbench;
  workbench.editor().Open(u"a1\r\nb2\r\nc3", {{0}, 8});
  workbench.prompts().Will(std::u16string(u"\\d"));
  RunCommand("mnuRegGet", workbench);
  EXPECT_EQ(workbench.editor().Text(), u"1\r\n2\r\nc3");
  workbench.editor().SetSelection({{0}, 6});
  workbench.prompts().Will(std::u16string(u"\\d"));
  workbench.prompts().Will(std::u16string(u"x"));
  RunCommand("mnuRegReplace", workbench);
  EXPECT_EQ(workbench.editor().Text(), u"x\r\nx\r\nc3");
}

TEST(SearchCommands, OpensTheFileOfTheLine) {
  ScriptedWorkbench workbench;
  workbench.editor().Open(u"x\r\n``C:\\a b.txt\r\n", {{5}, 0});
  workbench.prompts().Will(Answer::kYes);
  RunCommand("mnuGoToThis", workbench);
  EXPECT_EQ(workbench.editor().SelectedText(), u"``C:\\a b.txt");
  ASSERT_EQ(workbench.desktop().systemRuns.size(), 1U);
  EXPECT_EQ(workbench.desktop().systemRuns[0].second, u"C:\\a b.txt");
}

}  // namespace
}  // namespace scrivanta
