// What people come to the program for, from opening a file to finding the right bytes on the disk.
#include <string>

#include "lines/FrmDelLineFromXtoYControls.h"
#include "window/driver/WindowTest.h"

namespace scrivanta {
namespace {

class DocumentErrandTest : public WindowTest {};

// A list as it comes from a table program: empty lines, blanks at both ends, full-width blanks that are text, tabs of
// different numbers, a last line without an end.
const std::u16string kList =
    u"  借阅登记\r\n"
    u"\r\n"
    u"书名\t作者\t册数\r\n"
    u"围城\t钱锺书\t3  \r\n"
    u"\r\n"
    u"   \r\n"
    u"边城\t沈从文\r\n"
    u"第六行\r\n"
    u"第七行 \r\n"
    u"第八行\r\n"
    u"第九行\r\n"
    u"　　全角空格\r\n"
    u"\tTAB符\r\n"
    u"（到此为止）";

const std::u16string kCleanList =
    u"借阅登记\t\t\r\n"
    u"书名\t作者\t册数\r\n"
    u"围城\t钱锺书\t3\r\n"
    u"\t\t\r\n"
    u"　　全角空格\t\t\r\n"
    u"\tTAB符\t\r\n"
    u"（到此为止）\t\t";

TEST_F(DocumentErrandTest, CleansUpAListAndSavesItUnderAnotherName) {
  const auto list = folder.Write(u"借阅 登记.txt", Gbk(kList));
  const auto cleaned = folder / u"清理后.txt";
  app.Start();
  app.Open(list);
  app.ExpectText(kList);
  app.ExpectCaption(u"Scrivanta " + list.u16string());
  app.ExpectStatus(list.u16string());

  app.Menu("mnuDelEmptyLine");
  app.Menu("mnuTrimLine");
  app.Menu("mnuDelLineFromXtoY");
  app.ExpectDialog(u"删除开始行至结束行")
      .Type(TxtDelLineStart, u"5")
      .Type(TxtDelLineEnd, u"9")
      .Press(CmdFrmDelLineFromXtoY)
      .WaitUntilGone();
  app.Menu("mnuAddTAB");
  app.ExpectBox({.text = u"各行TAB符均已经加足至2个", .title = u"提示"}).Answer(Answer::kOk);
  app.ExpectText(kCleanList);
  app.Menu("mnuSaveAs");
  app.ChooseFile(cleaned);

  EXPECT_EQ(ReadBytes(cleaned), Gbk(kCleanList));
  EXPECT_EQ(ReadBytes(list), Gbk(kList));
  app.ExpectCaption(u"Scrivanta " + cleaned.u16string());
  app.Close();
  EXPECT_EQ(app.WaitForEnd(), 0);
}

TEST_F(DocumentErrandTest, WorksOnASelectionAndOnNothingElse) {
  app.Start();
  app.Open(folder.Write(u"选择.txt", Gbk(u" 一 \r\n\r\n 二 \r\n\r\n 三 \r\n\r\n四")));
  app.Editor().SelectText(u" 二 \r\n\r\n 三");
  app.Menu("mnuDelEmptyLine");
  app.ExpectText(u" 一 \r\n\r\n 二 \r\n 三 \r\n\r\n四");
  app.Editor().SelectText(u" 二 \r\n 三");
  app.Menu("mnuTrimLine");
  app.ExpectText(u" 一 \r\n\r\n二\r\n三 \r\n\r\n四");
}

TEST_F(DocumentErrandTest, DeletingLinesAsksWhenTheLastComesBeforeTheFirst) {
  const Message question{.text = u"后数<前数，是否交换！", .buttons = Buttons::kYesNo, .icon = Icon::kQuestion};
  app.Start();
  app.Open(folder.Write(u"行.txt", "1\r\n2\r\n3\r\n4"));
  app.Menu("mnuDelLineFromXtoY");
  app.ExpectDialog(u"删除开始行至结束行").Close();
  app.ExpectText(u"1\r\n2\r\n3\r\n4");

  for (const Answer answer : {Answer::kNo, Answer::kYes}) {
    app.Menu("mnuDelLineFromXtoY");
    app.ExpectDialog(u"删除开始行至结束行")
        .Type(TxtDelLineStart, u"3")
        .Type(TxtDelLineEnd, u"2 行")
        .Press(CmdFrmDelLineFromXtoY);
    app.ExpectBox(question).Answer(answer);
    app.ExpectText(answer == Answer::kNo ? u"1\r\n2\r\n3\r\n4" : u"1\r\n4");
  }
}

TEST_F(DocumentErrandTest, GoesToALine) {
  const InputQuestion question{.prompt = u"指定要定位的行："};
  app.Start();
  app.Open(folder.Write(u"行.txt", Gbk(u"一\r\n二二\r\n三")));
  app.Menu("mnuGotoLine");
  app.AnswerInput(question, u"3");
  EXPECT_EQ(app.Editor().Selection().start.value, 7U);
  app.Menu("mnuGotoLine");
  app.AnswerInput(question, u"");
  EXPECT_EQ(app.Editor().Selection().start.value, 7U);
  app.Menu("mnuGotoLine");
  app.AnswerInput(question, u"九九");
  app.ExpectBox({.text = u"出错了！", .icon = Icon::kCritical, .systemModal = true}).Answer(Answer::kOk);
}

}  // namespace
}  // namespace scrivanta
