// Rich text that the edit control does not give back as a whole.
#include <windows.h>

#include <string>

#include "window/driver/Clipboard.h"
#include "window/driver/WindowTest.h"

namespace scrivanta {
namespace {

class RichTextTest : public WindowTest {
 protected:
  // A bitmap of one point between two words.
  const std::string withPicture =
      "{\\rtf1\\ansi\\ansicpg936 one{\\pict\\dibitmap0\\picw1\\pich1\\picwgoal300\\pichgoal300 "
      "2800000001000000010000000100180000000000040000000000000000000000000000000000000000000000}two\\par}";
};

// What begins a line on the screen begins one of the text, for commands and files as well.
TEST_F(RichTextTest, ALineOfTheScreenIsOneOfTheText) {
  app.Start();
  app.Open(folder.Write(u"换行.rtf", "{\\rtf1\\ansi\\ansicpg936 one\\line two\\b three\\line\\b0 four}"));
  app.ExpectText(u"one\r\ntwothree\r\nfour");
  app.Press("Ctrl+End");
  app.Press("Shift+Enter");
  app.Type(u"five");
  app.ExpectText(u"one\r\ntwothree\r\nfour\r\nfive");
  app.Menu("mnuUndo");
  app.Menu("mnuUndo");
  app.ExpectText(u"one\r\ntwothree\r\nfour");
}

TEST_F(RichTextTest, ACommandThatChangesNothingTakesNoFormats) {
  app.Start();
  app.Type(u"标题和正文");
  app.Editor().SelectText(u"标题");
  app.Menu("mnuBold");
  app.Editor().Select({{5}, 0});
  app.Menu("mnuTrimLine");
  app.Editor().SelectText(u"标题");
  EXPECT_NE(app.Editor().SelectionFormat().dwEffects & CFE_BOLD, 0U);
}

// The control ends at the picture what it gives and reports no error.
TEST_F(RichTextTest, WhatTheControlGivesOnlyInPartReplacesNothing) {
  const auto file = folder.Write(u"图片.rtf", withPicture);
  app.Start();
  app.Open(file);
  app.Press("Ctrl+End");
  app.Type(u"three");
  app.Menu("mnuSave");
  app.ExpectBox({.text = u"文档里有编辑框不能完整给出的内容（例如图片），带格式的文本没有全部取出，因此没有进行。\n"
                         u"文档和原来的文件都没有改变。另存为 .txt 文件可以保存全部文字。",
                 .icon = Icon::kCritical,
                 .systemModal = true})
      .Answer(Answer::kOk);
  EXPECT_EQ(ReadBytes(file), withPicture);

  app.Menu("mnuSelectAll");
  app.Menu("mnuCopy");
  app.ExpectBox({.text = u"选中的内容里有编辑框不能完整给出的部分（例如图片），剪贴板上只有文字，没有格式。\n"
                         u"文档没有改变。",
                 .icon = Icon::kCritical,
                 .systemModal = true})
      .Answer(Answer::kOk);
  EXPECT_TRUE(TextOnClipboard().starts_with(u"one"));
  EXPECT_TRUE(TextOnClipboard().find(u"three") != std::u16string::npos);
}

}  // namespace
}  // namespace scrivanta
