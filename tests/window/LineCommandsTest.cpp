// The line commands in the window: their questions as boxes, their results as one step of undo. What they make of lines
// is tested natively.
#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "lines/FrmSortParametersControls.h"
#include "window/driver/WindowProbe.h"
#include "window/driver/WindowTest.h"

namespace scrivanta {
namespace {

class LineCommandsTest : public WindowTest {
 protected:
  void AnswerQuestion(std::u16string text, Answer defaultAnswer, Answer answer) {
    app.ExpectBox({.text = std::move(text),
                   .buttons = Buttons::kYesNoCancel,
                   .icon = Icon::kQuestion,
                   .defaultAnswer = defaultAnswer})
        .Answer(answer);
  }
};

TEST_F(LineCommandsTest, TheWordFilterAsksAndShowsBothGroups) {
  app.Start();
  app.Open(folder.Write(u"原稿.txt", Gbk(u"乙2\r\n甲10\r\n乙2")));
  const InputQuestion question{.prompt = u"输入过滤行关键字：", .title = u"输入信息"};
  const Message kind{.text = u"关键字是否为正则表达式？",
                     .title = u"过虑方式",
                     .buttons = Buttons::kYesNo,
                     .icon = Icon::kQuestion,
                     .defaultAnswer = Answer::kNo};
  app.Menu("mnuFilterNeedLine");
  app.AnswerInput(question, u"乙");
  app.ExpectBox(kind).Answer(Answer::kNo);
  app.ExpectText(
      u"以下行 含有 关键字：乙\r\n乙2\r\n乙2\r\n\r\n========================\r\n以下行 不含有 关键字：乙\r\n甲10");
  app.Menu("mnuUndo");
  app.ExpectText(u"乙2\r\n甲10\r\n乙2");

  app.Editor().SelectText(u"2\r\n甲1");
  app.Menu("mnuFilterNeedLine");
  app.AnswerInput({.prompt = question.prompt, .title = question.title, .preset = u"乙"}, u"\\d");
  app.ExpectBox(kind).Answer(Answer::kYes);
  app.ExpectText(
      u"乙以下行 含有 关键字：\\d\r\n2\r\n1\r\n\r\n========================\r\n以下行 不含有 关键字：\\d\r\n\r\n0\r\n"
      u"乙2");
  app.Menu("mnuUndo");
  EXPECT_EQ(Shown(app.Editor().SelectedText()), Shown(u"2\r\n甲1"));
}

TEST_F(LineCommandsTest, RepeatedLinesAreFilteredAfterThreeQuestionsAndCancelChangesNothing) {
  app.Start();
  app.Open(folder.Write(u"原稿.txt", Gbk(u"b\\乙\r\n甲\r\na\\乙\r\n甲")));
  const std::u16string byPattern = u"是否用正则方式过滤，选【是】，则每行用正则表达式提取，提取串相同即认为是重复行";
  const std::u16string howMany = u"[是]保留一条重复记录，[否]删除所有重复记录，[取消]退出";
  const std::u16string byName = u"[是]每行只取文件名部分进行比较，[否]整行文本方式比较，[取消]退出";
  app.Menu("mnuFilterRepeatLine");
  AnswerQuestion(byPattern, Answer::kNo, Answer::kYes);
  app.AnswerInput({.prompt = u"输入过滤正则式，如提取每行标准号的正则式：[a-su-zA-SU-Z]+|[\\d]+：",
                   .preset = u"[a-su-zA-SU-Z]+|[\\d]+"},
                  u"");
  app.Menu("mnuFilterRepeatLine");
  AnswerQuestion(byPattern, Answer::kNo, Answer::kNo);
  AnswerQuestion(howMany, Answer::kYes, Answer::kYes);
  AnswerQuestion(byName, Answer::kNo, Answer::kCancel);
  EXPECT_FALSE(app.MenuEntry("mnuUndo").enabled);
  EXPECT_FALSE(std::filesystem::exists(folder / "FileAutoSave.txt"));

  app.Menu("mnuFilterRepeatLine");
  AnswerQuestion(byPattern, Answer::kNo, Answer::kNo);
  AnswerQuestion(howMany, Answer::kYes, Answer::kYes);
  AnswerQuestion(byName, Answer::kNo, Answer::kYes);
  app.ExpectText(u"b\\乙\r\n甲\r\n\r\n\r\n\r\n\r\n\r\n\r\n以下为重复de文字行：\r\n\r\na\\乙\r\n甲");
  app.Menu("mnuUndo");
  app.ExpectText(u"b\\乙\r\n甲\r\na\\乙\r\n甲");
  app.Menu("mnuRandOrder");
  app.Menu("mnuUndo");
  app.ExpectText(u"b\\乙\r\n甲\r\na\\乙\r\n甲");
}

// The soft lines are the control's.
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

  // What has been captured is no longer what stands there.
  app.Editor().Select({{0}, 0});
  app.Editor().Insert(u"零\r\n");
  app.Settle();
  window.Press(CmdSort);
  ExpectRange(window, u"1", u"5", u"5");
  app.ExpectRemark(u"文本或选择已改变，行数已更新，请再按“排序”");
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
