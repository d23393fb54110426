#include "window/driver/WindowTest.h"

namespace scrivanta {
namespace {

class UndoTest : public WindowTest {
 protected:
  void ExpectMenu(bool canUndo, bool canRedo) {
    app.Settle();
    EXPECT_EQ(app.MenuEntry("mnuUndo").enabled, canUndo);
    EXPECT_EQ(app.MenuEntry("mnuRedo").enabled, canRedo);
  }
};

TEST_F(UndoTest, UndoesTypedWordsAndRedoesThem) {
  app.Start();
  ExpectMenu(false, false);
  app.Type(u"one two");
  app.ExpectText(u"one two");
  ExpectMenu(true, false);
  app.Menu("mnuUndo");
  app.ExpectText(u"one ");
  ExpectMenu(true, true);
  app.Menu("mnuUndo");
  app.ExpectText(u"");
  ExpectMenu(false, true);
  app.Menu("mnuRedo");
  app.Menu("mnuRedo");
  app.ExpectText(u"one two");
  ExpectMenu(true, false);
  app.Menu("mnuUndo");
  app.Type(u"x");
  app.ExpectText(u"one x");
  ExpectMenu(true, false);
}

TEST_F(UndoTest, ErasingTakesWholeCharactersAndIsOneStep) {
  app.Start();
  app.Type(u"一😀😀二");
  app.Press("Left");
  app.Press("Back");
  app.ExpectText(u"一😀二");
  app.Press("Back");
  app.ExpectText(u"一二");
  app.Menu("mnuUndo");
  app.ExpectText(u"一😀😀二");
  app.Press("Ctrl+Home");
  app.Press("Right");
  app.Press("Delete");
  app.ExpectText(u"一😀二");
}

TEST_F(UndoTest, ALineBreakComesBackWhereItWas) {
  app.Start();
  app.Open(folder.Write("a.txt", "first\r\nsecond\r\nthird"));
  app.Editor().Select({{7}, 0});
  app.Press("Back");
  app.ExpectText(u"firstsecond\r\nthird");
  app.Press("Delete");
  app.ExpectText(u"firstecond\r\nthird");
  app.Menu("mnuUndo");
  app.ExpectText(u"firstsecond\r\nthird");
  app.Menu("mnuUndo");
  app.ExpectText(u"first\r\nsecond\r\nthird");
  ExpectMenu(false, true);
}

TEST_F(UndoTest, TypingOverASelectionIsOneStep) {
  app.Start();
  app.Open(folder.Write("a.txt", Gbk(u"一二三\r\n四五六")));
  app.Editor().SelectText(u"二三\r\n四");
  app.Type(u"x");
  app.ExpectText(u"一x五六");
  app.Menu("mnuUndo");
  app.ExpectText(u"一二三\r\n四五六");
  EXPECT_EQ(app.Editor().SelectedText(), u"二三\r\n四");
}

TEST_F(UndoTest, LeavesTheFormattingOfUntouchedText) {
  app.Start();
  app.Open(folder.Write("a.txt", "bold plain"));
  app.Editor().SelectText(u"bold");
  app.Menu("mnuBold");
  app.Editor().Select({{10}, 0});
  app.Type(u"more");
  app.ExpectText(u"bold plainmore");
  app.Menu("mnuUndo");
  app.ExpectText(u"bold plain");
  app.Editor().SelectText(u"bold");
  EXPECT_NE(app.Editor().SelectionFormat().dwEffects & CFE_BOLD, 0U);
  app.Editor().SelectText(u"plain");
  EXPECT_EQ(app.Editor().SelectionFormat().dwEffects & CFE_BOLD, 0U);
}

TEST_F(UndoTest, BringsBackTheFormattingOfWhatACommandTookAway) {
  app.Start();
  app.Open(folder.Write("a.txt", Gbk(u"标题\r\n\r\n正文 汉\r\n\r\n结尾")));
  const auto isBold = [this](std::u16string_view text) {
    app.Editor().SelectText(text);
    return (app.Editor().SelectionFormat().dwEffects & CFE_BOLD) != 0;
  };
  app.Editor().SelectText(u"正文");
  app.Menu("mnuBold");
  app.Editor().Select({{2}, 0});
  app.Menu("mnuDelEmptyLine");
  app.ExpectText(u"标题\r\n正文 汉\r\n结尾");
  EXPECT_TRUE(isBold(u"正文"));
  app.Menu("mnuUndo");
  app.ExpectText(u"标题\r\n\r\n正文 汉\r\n\r\n结尾");
  EXPECT_EQ(app.Editor().Selection(), (TextRange{{2}, 0}));
  app.Type(u"：");
  app.ExpectText(u"标题：\r\n\r\n正文 汉\r\n\r\n结尾");
  EXPECT_TRUE(isBold(u"正文"));
  EXPECT_FALSE(isBold(u"标题"));
  app.Menu("mnuUndo");
  app.Menu("mnuRedo");
  app.Menu("mnuUndo");
  EXPECT_TRUE(isBold(u"正文"));
}

// So large that a plain text would be loaded anew.
TEST_F(UndoTest, ALargeEditLeavesTheFormattingOfTheRest) {
  app.Start();
  std::string lines = "title\r\n";
  for (int line = 0; line < 1600; ++line) {
    lines += "x \r\n";
  }
  app.Open(folder.Write("a.txt", lines));
  app.Editor().SelectText(u"title");
  app.Menu("mnuBold");
  const auto expectBoldTitle = [&] {
    app.Editor().SelectText(u"title");
    EXPECT_NE(app.Editor().SelectionFormat().dwEffects & CFE_BOLD, 0U);
  };
  app.Editor().Select({{7}, lines.size() - 7});
  app.Menu("mnuTrimLine");
  EXPECT_EQ(app.Text().find(u'x' + std::u16string(u" ")), std::u16string::npos);
  expectBoldTitle();
  app.Menu("mnuUndo");
  app.ExpectText(std::u16string(lines.begin(), lines.end()));
  expectBoldTitle();
}

TEST_F(UndoTest, ACommandIsOneStep) {
  app.Start();
  app.Open(folder.Write("a.txt", "one two\r\nthree"));
  app.Editor().SelectText(u"two\r\nth");
  app.Menu("mnuAllcaps");
  app.ExpectText(u"one TWO\r\nTHree");
  app.Menu("mnuUndo");
  app.ExpectText(u"one two\r\nthree");
  EXPECT_EQ(app.Editor().SelectedText(), u"two\r\nth");
  ExpectMenu(false, true);
  app.Menu("mnuRedo");
  app.ExpectText(u"one TWO\r\nTHree");
}

}  // namespace
}  // namespace scrivanta
