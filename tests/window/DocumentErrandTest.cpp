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

}  // namespace
}  // namespace scrivanta
