// Keys, formats and marks in the edit box.
#include <windows.h>

#include <regex>
#include <string>
#include <string_view>

#include "win/Clipboard.h"
#include "window/driver/Clipboard.h"
#include "window/driver/Wait.h"
#include "window/driver/WindowProbe.h"
#include "window/driver/WindowTest.h"

namespace scrivanta {
namespace {

class EditBoxTest : public WindowTest {
 protected:
  bool Has(DWORD effect) const { return (app.Editor().SelectionFormat().dwEffects & effect) != 0; }
};

TEST_F(EditBoxTest, DateAndTimeAreTyped) {
  app.Start();
  app.Type(u"记于");
  app.Press("Ctrl+;");
  const std::regex date("记于\\d{4}-\\d\\d-\\d\\d");
  WaitUntil("the date", [&] { return std::regex_match(Utf8(app.Text()), date); });
  app.Press("Ctrl+Shift+;");
  const std::regex dateAndTime("记于\\d{4}-\\d\\d-\\d\\d\\d\\d:\\d\\d:\\d\\d");
  WaitUntil("the time", [&] { return std::regex_match(Utf8(app.Text()), dateAndTime); });
}

TEST_F(EditBoxTest, TabIsACharacter) {
  app.Start();
  app.Type(u"甲乙");
  app.Press("Tab");
  app.Type(u"丙");
  app.Editor().SelectText(u"乙");
  app.Press("Tab");
  app.Type(u"丁");
  app.ExpectText(u"甲\t丁\t丙");
}

TEST_F(EditBoxTest, FormatIsCopiedWithTheKeys) {
  app.Start();
  app.Type(u"标题和正文");
  app.Editor().SelectText(u"标题");
  app.Menu("mnuBold");
  app.Menu("mnuItalic");
  app.Press("Ctrl+Shift+C");
  app.Editor().SelectText(u"正文");
  EXPECT_FALSE(Has(CFE_BOLD));
  app.Press("Ctrl+Shift+V");
  EXPECT_TRUE(Has(CFE_BOLD));
  EXPECT_TRUE(Has(CFE_ITALIC));
  app.Editor().SelectText(u"和");
  EXPECT_FALSE(Has(CFE_BOLD));
  app.ExpectText(u"标题和正文");

  app.Editor().SelectText(u"标题");
  app.Menu("mnuBold");
  app.Menu("mnuUnderline");
  EXPECT_FALSE(Has(CFE_BOLD));
  EXPECT_TRUE(Has(CFE_UNDERLINE));
}

TEST_F(EditBoxTest, ClipboardCommandsWorkOnTheSelection) {
  app.Start();
  app.Type(u"一二三四");
  EXPECT_FALSE(app.MenuEntry("mnuCut").enabled);
  app.Editor().SelectText(u"二三");
  app.Menu("mnuCut");
  app.ExpectText(u"一四");
  EXPECT_EQ(TextOnClipboard(), u"二三");
  PutOnClipboard(nullptr, u"五\r\n六");
  app.Menu("mnuPaste");
  app.ExpectText(u"一五\r\n六四");
  app.Editor().SelectText(u"五\r\n");
  app.Menu("mnuCopy");
  EXPECT_EQ(TextOnClipboard(), u"五\r\n");
  app.Menu("mnudelete");
  app.ExpectText(u"一六四");
  app.Menu("mnuSelectAll");
  EXPECT_EQ(app.Editor().SelectedText(), u"一六四");

  // What the code page lacks but has something like it for, in whatever format.
  const std::u16string rare = u"9m² ¥É㎡😀\xD83D";
  app.Editor().Insert(rare);
  app.Menu("mnuSelectAll");
  app.Menu("mnuBold");
  app.Press("Ctrl+Insert");
  EXPECT_EQ(TextOnClipboard(), rare);
  app.Press("Shift+Delete");
  app.ExpectText(u"");
  app.Press("Shift+Insert");
  app.Press("Shift+Insert");
  app.ExpectText(rare + rare);
}

TEST_F(EditBoxTest, TheFontOfTheLineStaysWhenAnotherDocumentIsOpened) {
  app.Start();
  app.Type(u"正文");
  app.Menu("mnuFont");
  app.AnswerInput({.prompt = u"字体设置：",
                   .preset = u"字体：宋体|字号：10.5|颜色：0|粗体：False|斜体：False|下划线：False|删除线：False"},
                  u"字号：18|斜体：是|颜色：255");
  const auto expectFont = [&] {
    const CHARFORMAT2W format = app.Editor().SelectionFormat();
    EXPECT_EQ(std::wstring_view(format.szFaceName), L"宋体");
    EXPECT_EQ(format.yHeight, 360);  // twips
    EXPECT_EQ(format.crTextColor, RGB(255, 0, 0));
    EXPECT_EQ(format.dwEffects & (CFE_BOLD | CFE_ITALIC | CFE_AUTOCOLOR), DWORD{CFE_ITALIC});
  };
  app.Editor().SelectText(u"正文");
  expectFont();
  app.Menu("mnuUndo");
  EXPECT_EQ(app.Editor().SelectionFormat().yHeight, 210);
  app.Menu("mnuRedo");
  app.Editor().SelectText(u"正文");
  expectFont();
  app.Menu("mnuSaveAs");
  app.ChooseFile(folder / u"字.txt");
  app.Open(folder.Write(u"另.txt", Gbk(u"另一篇")));
  app.Editor().SelectText(u"一");
  expectFont();
  app.Menu("mnuFont");
  app.AnswerInput({.prompt = u"字体设置：",
                   .preset = u"字体：宋体|字号：18|颜色：255|粗体：False|斜体：True|下划线：False|删除线：False"},
                  u"");
  expectFont();
}

TEST_F(EditBoxTest, FormattingIsSavedAndComesBack) {
  app.Start();
  app.Type(u"标题 正文");
  app.Press("Enter");
  app.Type(u"结尾 {\\}");
  app.Editor().Select({{0}, 0});
  app.Editor().Insert(u"9m²É ");
  app.Editor().SelectText(u"标题");
  app.Menu("mnuBold");
  app.Editor().SelectText(u"尾");
  app.Menu("mnuUnderline");
  const auto document = folder / u"格式.rtf";
  app.Menu("mnuSaveAs");
  app.ChooseFile(document);
  app.ExpectCaption(u"Scrivanta " + document.u16string());
  EXPECT_TRUE(ReadBytes(document).starts_with("{\\rtf"));

  app.Open(folder.Write("a.txt", "plain"));
  app.ExpectText(u"plain");
  app.Open(document);
  app.ExpectText(u"9m²É 标题 正文\r\n结尾 {\\}");
  EXPECT_FALSE(app.MenuEntry("mnuUndo").enabled);
  app.Editor().SelectText(u"标题");
  EXPECT_TRUE(Has(CFE_BOLD));
  app.Editor().SelectText(u"正文");
  EXPECT_FALSE(Has(CFE_BOLD));
  app.Editor().SelectText(u"尾");
  EXPECT_TRUE(Has(CFE_UNDERLINE));
  app.Type(u"声");
  app.ExpectText(u"9m²É 标题 正文\r\n结声 {\\}");
  app.Menu("mnuUndo");
  app.ExpectText(u"9m²É 标题 正文\r\n结尾 {\\}");
  EXPECT_TRUE(Has(CFE_UNDERLINE));
}

TEST_F(EditBoxTest, CapitalsAndMarks) {
  app.Start();
  app.Type(u"abc def 汉字 xyz");
  app.Editor().SelectText(u"def 汉");
  app.Menu("mnuAllcaps");
  app.ExpectText(u"abc DEF 汉字 xyz");
  app.Editor().Select({{4}, 0});
  app.Menu("mnuSelBegin");
  app.Editor().Select({{10}, 0});
  app.Menu("mnuSelEnd");
  EXPECT_EQ(app.Editor().SelectedText(), u"DEF 汉字");
}

}  // namespace
}  // namespace scrivanta
