// Closing the window with a document that has been changed.
#include "window/driver/WindowTest.h"

namespace scrivanta {
namespace {

class ShutdownTest : public WindowTest {
 protected:
  void CloseAndAnswer(Answer answer) {
    app.Close();
    app.ExpectBox({.text = u"是否存盘?", .buttons = Buttons::kYesNoCancel, .icon = Icon::kQuestion}).Answer(answer);
  }
};

TEST_F(ShutdownTest, AsksNothingWhenNothingHasChanged) {
  const auto document = folder.Write(u"原稿.txt", Gbk(u"一行\r\n"));
  app.Start(u'"' + document.u16string() + u'"');
  app.ExpectText(u"一行\r\n");
  app.Menu("mnuExit");
  EXPECT_EQ(app.WaitForEnd(), 0);
}

TEST_F(ShutdownTest, UntitledDocumentStaysUntilItIsSavedOrGivenUp) {
  app.Start();
  app.Type(u"没有存过");

  CloseAndAnswer(Answer::kCancel);
  app.ExpectText(u"没有存过");

  CloseAndAnswer(Answer::kYes);
  EXPECT_EQ(app.ExpectFileDialog().Filters().front(), u"筛选文件(*.txt;*.rtf)");
  app.CancelFileDialog();
  app.ExpectText(u"没有存过");

  CloseAndAnswer(Answer::kYes);
  app.ChooseFile(folder / u"笔记");
  EXPECT_EQ(app.WaitForEnd(), 0);
  EXPECT_EQ(ReadBytes(folder / u"笔记.Txt"), Gbk(u"没有存过"));
}

TEST_F(ShutdownTest, SavesUnderThePathOrLeavesTheFileAlone) {
  const auto document = folder.Write(u"原稿.txt", Gbk(u"旧"));
  app.Start(document.u16string());
  app.Type(u"新");
  CloseAndAnswer(Answer::kNo);
  EXPECT_EQ(app.WaitForEnd(), 0);
  EXPECT_EQ(ReadBytes(document), Gbk(u"旧"));

  app.Start(document.u16string());
  app.Type(u"新");
  CloseAndAnswer(Answer::kYes);
  EXPECT_EQ(app.WaitForEnd(), 0);
  EXPECT_EQ(ReadBytes(document), Gbk(u"新旧"));
}

}  // namespace
}  // namespace scrivanta
