// The line commands in the window: with their questions, on a document, on selections and on nothing at all.
#include <algorithm>
#include <array>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "lines/FrmSortParametersControls.h"
#include "window/driver/WindowProbe.h"
#include "window/driver/WindowTest.h"

namespace scrivanta {
namespace {

using Lines = std::vector<std::u16string>;

std::u16string Joined(const Lines& lines) {
  std::u16string text;
  for (const std::u16string& line : lines) {
    text += line + u"\r\n";
  }
  return text.empty() ? text : text.substr(0, text.size() - 2);
}

Lines Split(std::u16string_view text) {
  Lines lines;
  for (std::size_t end = 0; (end = text.find(u"\r\n")) != std::u16string_view::npos; text.remove_prefix(end + 2)) {
    lines.emplace_back(text.substr(0, end));
  }
  lines.emplace_back(text);
  return lines;
}

std::u16string Filtered(const std::u16string& keyword, Lines have, const Lines& haveNot) {
  const std::u16string header = u"以下行 不含有 关键字：" + keyword;
  have.insert(have.begin(), u"以下行 含有 关键字：" + keyword);
  have.insert(have.end(), {u"", std::u16string(Gbk(header).size(), u'='), header});
  have.insert(have.end(), haveNot.begin(), haveNot.end());
  return Joined(have);
}

std::u16string Deduplicated(Lines kept, const Lines& repeats) {
  kept.insert(kept.end(), 6, u"");
  kept.push_back(u"以下为重复de文字行：");
  if (!repeats.empty()) {
    kept.push_back(u"");
  }
  kept.insert(kept.end(), repeats.begin(), repeats.end());
  return Joined(kept);
}

std::u16string ConsecutivelyDeduplicated(Lines kept, const Lines& repeats) {
  kept.push_back(u"以下为重复de文字行：");
  kept.insert(kept.end(), repeats.begin(), repeats.end());
  return Joined(kept);
}

// A question that a command asks, and what the user answers.
using Step = std::variant<std::pair<Message, Answer>, std::pair<InputQuestion, std::u16string>>;

std::pair<Message, Answer> Asked(std::u16string text, Answer defaultAnswer, Answer answer) {
  return {{.text = std::move(text),
           .buttons = Buttons::kYesNoCancel,
           .icon = Icon::kQuestion,
           .defaultAnswer = defaultAnswer},
          answer};
}

std::pair<InputQuestion, std::u16string> AskedForKeyword(std::u16string answer) {
  return {{.prompt = u"输入过滤行关键字：", .title = u"输入信息"}, std::move(answer)};
}

std::pair<Message, Answer> AskedForKindOfKeyword(Answer answer) {
  return {{.text = u"关键字是否为正则表达式？",
           .title = u"过虑方式",
           .buttons = Buttons::kYesNo,
           .icon = Icon::kQuestion,
           .defaultAnswer = Answer::kNo},
          answer};
}

std::pair<Message, Answer> AskedForPattern(Answer answer) {
  return Asked(u"是否用正则方式过滤，选【是】，则每行用正则表达式提取，提取串相同即认为是重复行", Answer::kNo, answer);
}

std::pair<Message, Answer> AskedHowManyToKeep(Answer answer) {
  return Asked(u"[是]保留一条重复记录，[否]删除所有重复记录，[取消]退出", Answer::kYes, answer);
}

std::pair<Message, Answer> AskedForKey(Answer answer) {
  return Asked(u"[是]每行只取文件名部分进行比较，[否]整行文本方式比较，[取消]退出", Answer::kNo, answer);
}

constexpr char16_t kDocument[] = u"乙2\r\nd\\甲10\r\n乙2\r\n乙2\r\n\r\n甲10";
constexpr char16_t kSelectedLines[] = u"乙2\r\n乙2\r\n";  // in the middle of the document, the last line end too
constexpr char16_t kSelectedMiddle[] = u"2\r\nd\\甲10\r\n乙2\r\n乙2\r\n\r\n甲1";

struct Errand {
  const char* menu;
  std::vector<Step> steps;
  // What stands in the place of the whole document, of the two selections, and of an empty document.
  std::u16string document;
  std::u16string lines;
  std::u16string middle;
  std::u16string empty;
};

std::vector<Errand> Errands() {
  const std::u16string pattern = u"[\\d]+";
  const std::pair<InputQuestion, std::u16string> askedForExtraction = {
      {.prompt = u"输入过滤正则式，如提取每行标准号的正则式：[a-su-zA-SU-Z]+|[\\d]+：",
       .preset = u"[a-su-zA-SU-Z]+|[\\d]+"},
      pattern};
  return {
      {"mnuFilterNeedLine",
       {AskedForKeyword(u"乙"), AskedForKindOfKeyword(Answer::kNo)},
       Filtered(u"乙", {u"乙2", u"乙2", u"乙2"}, {u"d\\甲10", u"", u"甲10"}),
       Filtered(u"乙", {u"乙2", u"乙2"}, {}),
       Filtered(u"乙", {u"乙2", u"乙2"}, {u"2", u"d\\甲10", u"", u"甲1"}),
       Filtered(u"乙", {}, {u""})},
      {"mnuFilterNeedLine",
       {AskedForKeyword(u"甲\\d"), AskedForKindOfKeyword(Answer::kYes)},
       Filtered(u"甲\\d", {u"甲1", u"甲1"}, {u"乙2", u"", u"乙2", u"乙2", u"", u""}),
       Filtered(u"甲\\d", {}, {u"乙2", u"乙2"}),
       Filtered(u"甲\\d", {u"甲1", u"甲1"}, {u"2", u"", u"乙2", u"乙2", u"", u""}),
       Filtered(u"甲\\d", {}, {u""})},
      {"mnuFilterRepeatLine",
       {AskedForPattern(Answer::kNo), AskedHowManyToKeep(Answer::kYes), AskedForKey(Answer::kNo)},
       Deduplicated({u"乙2", u"d\\甲10", u"", u"甲10"}, {u"乙2", u"乙2"}),
       Deduplicated({u"乙2"}, {u"乙2"}),
       Deduplicated({u"2", u"d\\甲10", u"乙2", u"", u"甲1"}, {u"乙2"}),
       Deduplicated({}, {})},
      {"mnuFilterRepeatLine",
       {AskedForPattern(Answer::kNo), AskedHowManyToKeep(Answer::kNo), AskedForKey(Answer::kYes)},
       Deduplicated({u"d\\甲10", u""}, {u"乙2", u"乙2", u"甲10"}),
       Deduplicated({}, {u"乙2"}),
       Deduplicated({u"2", u"d\\甲10", u"", u"甲1"}, {u"乙2"}),
       Deduplicated({}, {})},
      {"mnuFilterRepeatLine",
       {AskedForPattern(Answer::kYes), askedForExtraction, AskedHowManyToKeep(Answer::kYes)},
       Deduplicated({u"乙2", u"d\\甲10", u""}, {u"乙2", u"乙2", u"甲10"}),
       Deduplicated({u"乙2", u""}, {u"乙2"}),
       Deduplicated({u"2", u"d\\甲10", u"", u"甲1"}, {u"乙2", u"乙2"}),
       Deduplicated({u""}, {})},
      {"mnuFilterContinueRepeatLine",
       {AskedHowManyToKeep(Answer::kYes)},
       ConsecutivelyDeduplicated({u"乙2", u"d\\甲10", u"乙2", u"", u"甲10"}, {u"乙2"}),
       ConsecutivelyDeduplicated({u"乙2"}, {u"乙2"}),
       ConsecutivelyDeduplicated({u"2", u"d\\甲10", u"乙2", u"", u"甲1"}, {u"乙2"}),
       ConsecutivelyDeduplicated({u""}, {})},
      {"mnuFilterContinueRepeatLine",
       {AskedHowManyToKeep(Answer::kNo)},
       ConsecutivelyDeduplicated({u"d\\甲10", u"", u"甲10"}, {u"乙2"}),
       ConsecutivelyDeduplicated({}, {u"乙2"}),
       ConsecutivelyDeduplicated({u"2", u"d\\甲10", u"", u"甲1"}, {u"乙2"}),
       ConsecutivelyDeduplicated({u""}, {})},
  };
}

class LineCommandsTest : public WindowTest {
 protected:
  void Show(std::u16string_view text) {
    app.Editor().Select({{0}, app.Text().size()});
    app.Editor().Insert(text);
    app.Settle();
    app.ExpectText(text);
  }

  // Answers as the errand says, but cancels the question with that number.
  void Run(const Errand& errand, std::size_t cancelled) {
    app.Menu(errand.menu);
    for (std::size_t i = 0; i < std::min(cancelled + 1, errand.steps.size()); ++i) {
      if (const auto* box = std::get_if<0>(&errand.steps[i])) {
        app.ExpectBox(box->first).Answer(i == cancelled ? Answer::kCancel : box->second);
      } else {
        AnswerInput(std::get<1>(errand.steps[i]), i == cancelled);
      }
    }
  }
  void Run(const Errand& errand) { Run(errand, errand.steps.size()); }

  void AnswerInput(const std::pair<InputQuestion, std::u16string>& step, bool cancel) {
    InputQuestion question = step.first;
    const bool isKeyword = question.preset.empty();
    question.preset = isKeyword ? lastKeyword_ : question.preset;
    app.AnswerInput(question, cancel ? std::u16string() : step.second);
    lastKeyword_ = isKeyword && !cancel ? step.second : lastKeyword_;
  }

  static bool CanBeCancelled(const Step& step) {
    const auto* box = std::get_if<0>(&step);
    return box == nullptr || box->first.buttons == Buttons::kYesNoCancel;
  }

 private:
  std::u16string lastKeyword_;  // is offered again
};

TEST_F(LineCommandsTest, WorkOnTheDocumentOnSelectionsAndOnNothing) {
  app.Start();
  for (const Errand& errand : Errands()) {
    SCOPED_TRACE(errand.menu);
    Show(u"");
    Run(errand);
    app.ExpectText(errand.empty);

    Show(kDocument);
    Run(errand);
    app.ExpectText(errand.document);
    app.Menu("mnuUndo");
    app.ExpectText(kDocument);

    for (const auto& [selected, result] :
         {std::pair(kSelectedLines, errand.lines), std::pair(kSelectedMiddle, errand.middle)}) {
      std::u16string expected = kDocument;
      expected.replace(expected.find(selected), std::u16string_view(selected).size(), result);
      app.Editor().SelectText(selected);
      Run(errand);
      app.ExpectText(expected);
      app.Menu("mnuUndo");
      app.ExpectText(kDocument);
      EXPECT_EQ(Shown(app.Editor().SelectedText()), Shown(selected));
    }
  }
}

TEST_F(LineCommandsTest, CancelAtAnyQuestionChangesNothing) {
  app.Start();
  app.Open(folder.Write(u"原稿.txt", Gbk(kDocument)));
  const std::u16string caption = app.Caption();
  for (const Errand& errand : Errands()) {
    SCOPED_TRACE(errand.menu);
    for (std::size_t i = 0; i < errand.steps.size(); ++i) {
      if (CanBeCancelled(errand.steps[i])) {
        Run(errand, i);
        app.ExpectText(kDocument);
        app.ExpectCaption(caption);
      }
    }
  }
  EXPECT_FALSE(app.MenuEntry("mnuUndo").enabled);
  EXPECT_FALSE(std::filesystem::exists(folder / "FileAutoSave.txt"));
  app.Close();  // without a question: nothing has changed
  EXPECT_EQ(app.WaitForEnd(), 0);
}

TEST_F(LineCommandsTest, ShuffleKeepsTheLinesAndTheSelectionsPlace) {
  Lines lines;
  for (char16_t c = u'a'; c <= u'z'; ++c) {
    lines.push_back({c, c});
  }
  const std::u16string text = Joined(lines);
  app.Start();
  Show(u"");
  app.Menu("mnuRandOrder");
  app.ExpectText(u"");

  Show(text);
  app.Menu("mnuRandOrder");
  Lines shuffled = Split(app.Text());
  EXPECT_NE(shuffled, lines);
  std::ranges::sort(shuffled);
  EXPECT_EQ(shuffled, lines);

  app.Menu("mnuUndo");
  app.ExpectText(text);
  app.Editor().SelectText(text.substr(1, text.size() - 2));  // all but one letter at each end
  app.Menu("mnuRandOrder");
  const std::u16string result = app.Text();
  EXPECT_NE(Shown(result), Shown(text));
  EXPECT_EQ(result.size(), text.size());
  EXPECT_EQ(result.front(), u'a');
  EXPECT_EQ(result.back(), u'z');
}

TEST_F(LineCommandsTest, StatisticsCountsWhatIsSelectedOrAll) {
  const auto expect = [this](const std::u16string& report) {
    app.Menu("mnuStatistics");
    app.ExpectBox({.text = report, .title = u"统计字符数", .icon = Icon::kInformation}).Answer(Answer::kOk);
  };
  app.Start();
  expect(u"当前行号：1\n全文字符数：0\n全文  软行数：硬行数 = 1：0");
  app.Open(folder.Write(u"统计.txt", Utf8(u"一二\r\nab\r\nc😀")));
  app.Editor().Select({{6}, 0});
  expect(u"当前行号：2\n全文字符数：11\n全文  软行数：硬行数 = 3：3");
  app.Editor().SelectText(u"ab\r\nc");
  expect(u"当前行号：3\n所选字符数：5\n所选内容 软行数：硬行数 = 2：2");
  app.ExpectText(u"一二\r\nab\r\nc😀");
  app.Close();  // without a question: nothing has changed
  EXPECT_EQ(app.WaitForEnd(), 0);
}

class SortWindowTest : public WindowTest {
 protected:
  DialogDriver OpenSortWindow() {
    app.Menu("mnuSort");
    return app.ExpectDialog(u"文件排序");
  }
  static void ExpectRange(const DialogDriver& window, const std::u16string& from, const std::u16string& to,
                          const std::u16string& total) {
    EXPECT_EQ(Shown(window.Text(TxtSortFrom) + u"-" + window.Text(TxtSortTo) + u" of " + window.Text(LabTotalNum)),
              Shown(from + u"-" + to + u" of " + total));
  }
};

TEST_F(SortWindowTest, SortsBesideTheDocument) {
  app.Start();
  app.Open(folder.Write(u"排序.txt", Gbk(u"x10\r\nx9\r\nx-3\r\n一")));
  DialogDriver window = OpenSortWindow();
  ExpectRange(window, u"1", u"4", u"4");
  EXPECT_TRUE(window.IsChecked(OptString));
  EXPECT_TRUE(window.IsChecked(OptShenXi));
  window.Press(CmdSort);
  app.ExpectText(u"x-3\r\nx10\r\nx9\r\n一");
  window.Press(OptNumber).Press(OptJiangXi).Type(TxtSortTo, u"3").Press(CmdSort);
  app.ExpectText(u"一\r\nx10\r\nx9\r\nx-3");
  app.Menu("mnuUndo");
  app.ExpectText(u"x-3\r\nx10\r\nx9\r\n一");

  // A selection, from one line's middle to another's: it stays selected, and is sorted again.
  app.Editor().SelectText(u"3\r\nx10\r\nx");
  window = OpenSortWindow();
  ExpectRange(window, u"1", u"3", u"3");
  window.Press(CmdSort);
  app.ExpectText(u"x-x10\r\n3\r\nx9\r\n一");
  EXPECT_EQ(Shown(app.Editor().SelectedText()), Shown(u"x10\r\n3\r\nx"));
  window.Press(OptShenXi).Press(CmdSort);
  app.ExpectText(u"x-x\r\n3\r\nx109\r\n一");
}

TEST_F(SortWindowTest, BringsTheRangeInsideAndSaysSo) {
  app.Start();
  app.Open(folder.Write(u"排序.txt", "c\r\nb\r\na"));
  DialogDriver window = OpenSortWindow();
  window.Type(TxtSortFrom, u"0").Type(TxtSortTo, u"2行").Press(CmdSort);
  app.ExpectBox({.text = u"排序范围应在1至3之间，已改为1至2。", .icon = Icon::kInformation}).Answer(Answer::kOk);
  app.ExpectText(u"b\r\nc\r\na");
  ExpectRange(window, u"1", u"2", u"3");
}

TEST_F(SortWindowTest, CapturesAgainWhenTheDocumentOrTheSelectionHasChanged) {
  app.Start();
  app.Editor().Insert(u"b\r\na");
  DialogDriver window = OpenSortWindow();
  ExpectRange(window, u"1", u"2", u"2");
  app.Editor().Select({{4}, 0});
  app.Editor().Insert(u"\r\n9");
  app.Settle();
  window.Press(CmdSort);
  app.ExpectText(u"b\r\na\r\n9");
  ExpectRange(window, u"1", u"3", u"3");
  app.ExpectStatus(u"状态    文本或选择已改变，行数已更新，请再按“排序”");
  window.Press(CmdSort);
  app.ExpectText(u"9\r\na\r\nb");

  app.Editor().SelectText(u"a\r\nb");
  window.Press(OptJiangXi).Press(CmdSort);
  app.ExpectText(u"9\r\na\r\nb");
  ExpectRange(window, u"1", u"2", u"2");
  window.Press(CmdSort);
  app.ExpectText(u"9\r\nb\r\na");
}

TEST_F(SortWindowTest, IsUsedWithTheKeyboard) {
  app.Start();
  app.Open(folder.Write(u"排序.txt", "c2\r\nb3\r\na1"));
  DialogDriver window = OpenSortWindow();
  app.Type(u"1");  // over the 1 that is there
  ExpectRange(window, u"1", u"3", u"3");
  for (const int control : {TxtSortFrom, TxtSortTo, OptString, OptShenXi, CmdSort}) {
    EXPECT_EQ(window.Focus(), control);
    app.Press("Tab");
  }
  EXPECT_EQ(window.Focus(), TxtSortFrom);
  app.Type(u"2");
  app.Press("Enter");
  app.ExpectText(u"c2\r\na1\r\nb3");
  app.Press("Esc");
  window.WaitUntilGone();
}

}  // namespace
}  // namespace scrivanta
