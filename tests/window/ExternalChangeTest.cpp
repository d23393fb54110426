// The file of the open document is changed by another program.
#include <windows.h>

#include <string>

#include "window/driver/ProgramProcess.h"
#include "window/driver/Wait.h"
#include "window/driver/WindowTest.h"

namespace scrivanta {
namespace {

class ExternalChangeTest : public WindowTest {
 protected:
  // The person goes to another program and comes back.
  void LeaveAndComeBack(const ProgramProcess& other) {
    SetForegroundWindow(other.MainWindow());
    WaitUntil("the other program to be in front", [&] { return GetForegroundWindow() == other.MainWindow(); });
    app.Settle();
    SetForegroundWindow(app.MainWindow());
  }
};

TEST_F(ExternalChangeTest, IsNoticedWhenThePersonComesBack) {
  const auto document = folder.Write(u"清单.txt", Gbk(u"苹果\n"));
  app.Start(document.u16string());
  app.Press("Ctrl+End");
  app.Type(u"梨");
  const ProgramProcess other;
  WriteBytes(document, Utf8(u"香蕉\r\n葡萄\r\n"));
  LeaveAndComeBack(other);
  app.ExpectBox({.text = u"文件已被其他程序改动：\n" + document.u16string() +
                         u"\n这里的文本也改动过，还没有存盘。\n\n“是”：载入文件现在的内容，这里的文本可以撤消回来\n"
                         u"“否”：保留这里的文本，文件先不动，存盘时再问",
                 .buttons = Buttons::kYesNo,
                 .icon = Icon::kQuestion,
                 .defaultAnswer = Answer::kNo})
      .Answer(Answer::kYes);
  app.ExpectText(u"香蕉\r\n葡萄\r\n");
  app.Menu("mnuUndo");
  app.ExpectText(u"苹果\r\n梨");

  app.Menu("mnuSave");
  EXPECT_EQ(ReadBytes(document), Gbk(u"苹果\n梨")) << "encoding and line ends go back with the text";
  std::filesystem::remove(document);
  LeaveAndComeBack(other);
  app.ExpectBox(
         {.text = u"文件已被删除、移走或改名：\n" + document.u16string() + u"\n文本还在这里，存盘就重新写出这个文件。",
          .icon = Icon::kWarning})
      .Answer(Answer::kOk);
  app.Close();
  app.ExpectBox({.text = u"是否存盘?", .buttons = Buttons::kYesNoCancel, .icon = Icon::kQuestion}).Answer(Answer::kYes);
  EXPECT_EQ(app.WaitForEnd(), 0);
  EXPECT_EQ(ReadBytes(document), Gbk(u"苹果\n梨"));
}

}  // namespace
}  // namespace scrivanta
