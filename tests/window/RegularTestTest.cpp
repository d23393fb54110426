// The pattern tester as a person uses it.
#include "search/ScrivantaRegularTestControls.h"
#include "text/DecimalText.h"
#include "win/Handles.h"
#include "window/driver/Keyboard.h"
#include "window/driver/WindowTest.h"

namespace scrivanta {
namespace {

constexpr char16_t kCaption[] = u"RegularTest正则表达式测试";

class RegularTestTest : public WindowTest {
 protected:
  RegularTestTest() { std::filesystem::remove(IniFile()); }
  ~RegularTestTest() override { std::filesystem::remove(IniFile()); }

  static std::filesystem::path IniFile() { return TestProgramFolder() / "window_tests.ini"; }

  DialogDriver Open() {
    app.Menu("mnuRegTest");
    return app.ExpectDialog(kCaption);
  }

  void Test(DialogDriver& dialog, std::u16string_view pattern, std::u16string_view count) {
    dialog.Type(Combo1, pattern).Press(Command1);
    app.ExpectBox({.text = u"发现 " + std::u16string(count) + u" 次。", .systemModal = true}).Answer(Answer::kOk);
  }

  bool IsColoured(std::u16string_view part) {
    app.Editor().SelectText(part);
    const CHARFORMAT2W format = app.Editor().SelectionFormat();
    const bool hasBackground = (format.dwEffects & CFE_AUTOBACKCOLOR) == 0;
    EXPECT_EQ(format.crTextColor == RGB(255, 0, 0), hasBackground);
    EXPECT_EQ(format.crBackColor == RGB(255, 255, 0), hasBackground);
    return hasBackground;
  }
};

TEST_F(RegularTestTest, ColoursTheMatchesAndCountsThem) {
  app.Start();
  app.Editor().Insert(u"电话\r\n010-1234567\r\nTEL 021-7654321\r\n");
  DialogDriver dialog = Open();
  EXPECT_EQ(dialog.Focus(), Combo1);
  Test(dialog, u"0\\d{2}-\\d{7}", u"2");
  EXPECT_TRUE(IsColoured(u"010-1234567"));
  EXPECT_TRUE(IsColoured(u"021-7654321"));
  EXPECT_FALSE(IsColoured(u"TEL"));
  Test(dialog, u"tel", u"1");
  EXPECT_FALSE(IsColoured(u"010-1234567"));
  EXPECT_TRUE(IsColoured(u"TEL"));
  Test(dialog, u"fax", u"0");
  EXPECT_FALSE(IsColoured(u"TEL"));
  dialog.Type(Combo1, u"").Press(Command1);
  EXPECT_TRUE(dialog.IsOpen());
  app.ExpectText(u"电话\r\n010-1234567\r\nTEL 021-7654321\r\n");

  app.Menu("mnuRegTest");  // the one that is open comes to the front
  EXPECT_EQ(app.ExpectDialog(kCaption).window(), dialog.window());
  app.Type(u"电");
  PressKeys("Enter");
  app.ExpectBox({.text = u"发现 1 次。", .systemModal = true}).Answer(Answer::kOk);
  app.Press("Esc");
  dialog.WaitUntilGone();
}

TEST_F(RegularTestTest, ColoursWithoutMovingTheView) {
  app.Start();
  const auto lineWithNumber = [](LRESULT number) { return u"行" + DecimalText(100 + number); };
  std::u16string text;
  for (int number = 0; number < 300; ++number) {
    text += lineWithNumber(number) + u"\r\n";
  }
  app.Editor().Insert(text);
  POINT before{0, 1000};
  const HWND box = app.Editor().window();
  SendMessageW(box, EM_SETSCROLLPOS, 0, reinterpret_cast<LPARAM>(&before));
  SendMessageW(box, EM_GETSCROLLPOS, 0, reinterpret_cast<LPARAM>(&before));
  ASSERT_GT(before.y, 0);
  POINTL inView{4, 60};
  const LRESULT character = SendMessageW(box, EM_CHARFROMPOS, 0, reinterpret_cast<LPARAM>(&inView));
  const LRESULT line = SendMessageW(box, EM_EXLINEFROMCHAR, 0, character);
  DialogDriver dialog = Open();
  Test(dialog, u"行100|" + lineWithNumber(line), u"2");
  POINT after{};
  SendMessageW(box, EM_GETSCROLLPOS, 0, reinterpret_cast<LPARAM>(&after));
  EXPECT_EQ(after.y, before.y);
}

TEST_F(RegularTestTest, KeepsItsHistoryInTheIniFileAndExplainsTheDialect) {
  WriteBytes(IniFile(), Gbk(u"[HistoryRegularPattern]\r\n00000=甲\r\n00001=乙\r\n"));
  app.Start();
  app.Editor().Insert(u"甲乙");
  DialogDriver dialog = Open();
  EXPECT_EQ(dialog.Text(Command1), u"测试&T");
  EXPECT_EQ(dialog.Text(Command2), u"退出&Q");
  EXPECT_EQ(dialog.Text(Command3), u"按INI更新&R");
  EXPECT_EQ(dialog.ToolTip(Combo1), u"F1键打看配置文件查看；F2将条目过滤到前面，方便选择");
  EXPECT_EQ(dialog.ToolTip(Command3), u"一般用于手动修改INI文件后,此时上面的组合框并未更新,按此更新");
  EXPECT_NE(dialog.Text(Text1).find(u"\r\n$    行尾（pld：尽量不用，用\\r\\n代替）\r\n"), std::u16string::npos);
  EXPECT_NE(GetWindowLongPtrW(dialog.Control(Text1), GWL_STYLE) & ES_READONLY, 0);
  const std::vector<std::u16string> opened = {u"甲",
                                              u"乙",
                                              u"'功能：[\\W\\w]+?(^Public Function |^Public Sub ).*?$",
                                              u"'功能：.*?$|(^Public Function |^Public Sub )[\\W\\w]+?\\).*?$",
                                              u"Win.*?.bas",
                                              u"NumX._AB.bas",
                                              u"^.*?$"};
  EXPECT_EQ(dialog.Items(Combo1), opened);
  Test(dialog, u"[甲乙]", u"2");
  EXPECT_NE(ReadBytes(IniFile()).find(Gbk(u"00007 = [甲乙]\r\n")), std::string::npos) << ReadBytes(IniFile());
  app.Press("Shift+Tab");
  app.Press("F2");
  app.AnswerInput({.prompt = u"输入要置前的条目关键字"}, u"乙");
  EXPECT_EQ(dialog.Items(Combo1)[0], u"乙");
  EXPECT_EQ(dialog.Items(Combo1)[1], u"[甲乙]");
  WriteBytes(IniFile(), Gbk(u"[HistoryRegularPattern]\r\n00000=丙\r\n"));
  dialog.Press(Command3);
  EXPECT_EQ(dialog.Items(Combo1), std::vector<std::u16string>{u"丙"});

  SetWindowPos(dialog.window(), nullptr, 111, 99, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
  dialog.Press(Command2);
  dialog.WaitUntilGone();
  RECT bounds{};
  GetWindowRect(Open().window(), &bounds);
  EXPECT_EQ(bounds.left, 111);
  EXPECT_EQ(bounds.top, 99);
}

}  // namespace
}  // namespace scrivanta
