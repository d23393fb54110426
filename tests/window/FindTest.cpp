// The find dialog as a person uses it.
#include <windows.h>

#include <commctrl.h>

#include <array>

#include "search/FrmFindControls.h"
#include "search/FrmReplacePreviewControls.h"
#include "win/Handles.h"
#include "window/driver/LeftBehind.h"
#include "window/driver/StoredSettings.h"
#include "window/driver/WindowProbe.h"
#include "window/driver/WindowTest.h"

namespace scrivanta {
namespace {

constexpr std::u16string_view kLineBreakToken = u"<回车换行符>";
constexpr std::u16string_view kTabToken = u"<制表符>";

class FindTest : public WindowTest {
 protected:
  void StartWith(std::u16string_view text) {
    app.Start();
    app.Editor().Insert(text);
    app.Editor().Select({});
  }

  DialogDriver Open() {
    app.Menu("mnuFind");
    return app.ExpectDialog(u"查找");
  }

  DialogDriver Preview() { return app.ExpectDialog(u"在文件中替换：预览"); }

  static Message ReplaceQuestion(const std::u16string& files, const std::u16string& places) {
    return {.text = u"将在" + files + u"个文件中替换" + places +
                    u"处。替换前的文件会留到下一次替换，在此之前可以用【撤消文件替换】还原。\n是否继续？",
            .buttons = Buttons::kYesNo,
            .icon = Icon::kWarning,
            .defaultAnswer = Answer::kNo,
            .systemModal = true};
  }

  // On the box before a row.
  void Click(HWND list, int row) {
    RECT icon{};
    icon.left = LVIR_ICON;
    Send(list, LVM_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&icon));
    const LPARAM place = MAKELPARAM(icon.left - 8, (icon.top + icon.bottom) / 2);
    PostMessageW(list, WM_LBUTTONDOWN, MK_LBUTTON, place);
    PostMessageW(list, WM_LBUTTONUP, 0, place);
    app.Settle();
  }

  void ExpectSelected(TextRange range) { EXPECT_EQ(app.Editor().Selection(), range); }

  static Message NotFound() { return {.text = u"未找到结果", .icon = Icon::kInformation, .systemModal = true}; }
};

TEST_F(FindTest, ShowsItsControlsAndTellsWhatTheyAreFor) {
  StartWith(u"x");
  const DialogDriver dialog = Open();
  EXPECT_NE(GetWindowLongPtrW(dialog.window(), GWL_EXSTYLE) & WS_EX_TOPMOST, 0);
  struct Shown {
    int control;
    std::u16string caption;
    std::u16string toolTip;
  };
  const Shown controls[] = {
      {Label1, u"查找内容", u""},
      {Combo1, u"", u"F1注册表或INI文件中的清单；F2将条目过滤到前面，方便选择"},
      {Label2, u"替换为", u""},
      {Combo2, u"", u""},
      {Option1, u"上", u""},
      {Option2, u"下", u""},
      {ChkCapitalCheck, u"区分大小写", u""},
      {ChkRegExpSearch, u"正则表达式查找", u""},
      {ChkIncludeFormat, u"保留源格式", u"【全部替换】保留源格式查找，如果有而不能被替换就取消勾选"},
      {ChkInSelection, u"仅在所选范围", u"查找、替换只在勾选时选中的几行中进行"},
      {CmdFindNext, u"查找下一个(&N)", u""},
      {CmdFindAll, u"查找所有(&A)", u""},
      {CmdReplace, u"替换(&R)", u""},
      {CmdReplaceAll, u"全部替换(&L)", u""},
      {CmdFilter, u"过滤(&I)", u"将含关键字行移到文首，正则表达式方式要标记全，结尾如：.*$"},
      {CmdSearchInFile, u"在文件中查找(&F)", u"分开列出【含有】和【不含有】查找内容的文件"},
      {CmdReplaceInFile, u"在文件中替换(&E)", u"在列出的文件行中替换，不可逆转！！"},
      {CmdClose, u"关闭(&C)", u""},
      {RichTextBox1, u"请将文件拖动到此窗口（同时按住Alt键拖曳时，清除原来的数据）或 右击文件-->", u""},
  };
  for (const Shown& shown : controls) {
    EXPECT_EQ(dialog.Text(shown.control), shown.caption);
    EXPECT_EQ(dialog.ToolTip(shown.control), shown.toolTip);
  }
  EXPECT_TRUE(dialog.IsChecked(Option2));
  EXPECT_FALSE(dialog.IsChecked(ChkRegExpSearch));
}

TEST_F(FindTest, IsUsedWithTheKeyboardAlone) {
  StartWith(u"苹果 apple\r\nAPPLE 苹果");
  app.Press("Ctrl+F");
  DialogDriver dialog = app.ExpectDialog(u"查找");
  for (const int control : {Combo1, Combo2, Option2, ChkCapitalCheck, ChkRegExpSearch, ChkIncludeFormat, ChkInSelection,
                            CmdFindNext, CmdFindAll, CmdReplace, CmdReplaceAll, CmdFilter, CmdSearchInFile,
                            CmdReplaceInFile, CmdClose, RichTextBox1, Combo1}) {
    EXPECT_EQ(dialog.Focus(), control);
    app.Press("Tab");
  }
  app.Press("Shift+Tab");
  app.Type(u"apple");
  for (const std::size_t start : {3U, 10U, 3U}) {  // around the end
    app.Press("Enter");
    ExpectSelected({{start}, 5});
  }
  app.Press("F3");
  ExpectSelected({{10}, 5});
  app.Press("Shift+F3");
  ExpectSelected({{3}, 5});
  app.Press("Alt+R");  // replaces by nothing
  app.ExpectText(u"苹果 \r\nAPPLE 苹果");
  ExpectSelected({{5}, 5});
  app.Press("Esc");
  dialog.WaitUntilGone();

  app.Press("F3");
  ExpectSelected({{5}, 5});
  app.Press("Home");
  app.Press("Shift+F3");
  ExpectSelected({{5}, 5});
  app.Press("Ctrl+H");
  dialog = app.ExpectDialog(u"查找");
  EXPECT_EQ(dialog.Text(Combo1), u"APPLE");
  EXPECT_EQ(dialog.Focus(), Combo2);
}

TEST_F(FindTest, FindsPlainAndByPatternUpAndDown) {
  StartWith(u"中 a1\r\nb22 A1\r\n");
  DialogDriver dialog = Open();
  dialog.Type(Combo1, u"a1").Press(ChkCapitalCheck).Press(CmdFindNext);
  ExpectSelected({{2}, 2});
  dialog.Press(CmdFindNext);
  ExpectSelected({{2}, 2});
  dialog.Type(Combo1, u"a|b").Press(CmdFindNext);
  app.ExpectBox(NotFound()).Answer(Answer::kOk);
  ExpectSelected({{2}, 2});

  dialog.Press(ChkCapitalCheck).Press(ChkRegExpSearch).Press(Option1);
  EXPECT_EQ(dialog.ToolTip(Combo2), u"支持如：\\1\\2...正则表达式标签标记");
  dialog.Type(Combo1, u"[ab](\\d+)");
  for (const TextRange& range : {TextRange{{10}, 2}, TextRange{{6}, 3}, TextRange{{2}, 2}}) {
    dialog.Press(CmdFindNext);
    ExpectSelected(range);
  }
  dialog.Type(Combo2, u"<\\1>").Press(Option2).Press(CmdReplace);
  app.ExpectText(u"中 <1>\r\nb22 A1\r\n");
  ExpectSelected({{7}, 3});
  dialog.Press(CmdReplaceAll);  // within the selection only
  app.ExpectText(u"中 <1>\r\n<22> A1\r\n");
  app.ExpectRemark(u"已替换1处");
  dialog.Type(Combo1, u"[ab](").Press(CmdFindNext);
  app.ExpectBox({.text = u"正则表达式有误：第5个字符：这个左括号“(”没有与之配对的“)”。",
                 .icon = Icon::kCritical,
                 .systemModal = true})
      .Answer(Answer::kOk);
  app.ExpectText(u"中 <1>\r\n<22> A1\r\n");
}

TEST_F(FindTest, TakesTokensAndReplacesAll) {
  StartWith(u"一\r\n二\t三.三\r\n");
  DialogDriver dialog = Open();
  dialog.Type(Combo1, kLineBreakToken).Press(CmdFindNext);
  ExpectSelected({{1}, 2});
  dialog.Type(Combo2, u"，" + std::u16string(kTabToken));
  app.Editor().Select({});
  dialog.Press(CmdReplaceAll);
  app.ExpectText(u"一，\t二\t三.三，\t");
  app.ExpectRemark(u"已替换2处");
  dialog.Type(Combo1, u".").Type(Combo2, u"\\1|$&").Press(CmdReplaceAll);
  app.ExpectText(u"一，\t二\t三\\1|$&三，\t");
  app.Menu("mnuUndo");
  app.ExpectText(u"一，\t二\t三.三，\t");
  dialog.Press(CmdClose);
  dialog.WaitUntilGone();
  app.Editor().SelectText(u"\t二\t");
  EXPECT_EQ(Open().Text(Combo1), std::u16string(kTabToken) + u"二" + std::u16string(kTabToken));
}

TEST_F(FindTest, ReplacesWithinTheFormattingAlone) {
  const std::string rtf =
      "{\\rtf1\\ansi\\ansicpg936\\deff0{\\fonttbl{\\f0\\fnil\\fcharset134 \\'cb\\'ce\\'cc\\'e5;}}"
      "{\\colortbl ;\\red255\\green0\\blue0;\\red0\\green128\\blue0;}"
      "\\viewkind4\\uc1\\pard\\lang2052\\f0\\fs21 par \\b red\\b0  f \\cf1 \\'d6\\'d0\\'ce\\'c4 0\\cf0\\par "
      "b ' \\cf2\\i r\\cf1 ed\\cf0\\i0\\par}";
  const auto file = folder.Write(u"格式.rtf", rtf);
  app.Start(file.u16string());
  std::u16string text = u"par red f 中文 0\r\nb ' red";
  app.ExpectText(text);
  const auto formatOf = [this](std::u16string_view part) {
    app.Editor().SelectText(part);
    const CHARFORMAT2W format = app.Editor().SelectionFormat();
    app.Editor().Select({});
    return std::pair(format.dwEffects & (CFE_BOLD | CFE_ITALIC), format.crTextColor);
  };
  const auto red = formatOf(u"中文");
  EXPECT_EQ(red.second, RGB(255, 0, 0));

  DialogDriver dialog = Open();
  dialog.Press(ChkIncludeFormat).Press(ChkCapitalCheck);
  struct Step {
    std::u16string find;
    std::u16string replacement;
    std::u16string text;
    std::u16string status;
  };
  const Step steps[] = {
      {u"par", u"{段}\\", u"{段}\\ red f 中文 0\r\nb ' red", u"已替换1处"},
      {u"b", u"c", u"{段}\\ red f 中文 0\r\nc ' red", u"已替换1处"},
      {u"0", u"零", u"{段}\\ red f 中文 零\r\nc ' red", u"已替换1处"},
      {u"f", u"g", u"{段}\\ red g 中文 零\r\nc ' red", u"已替换1处"},
      {u"'", u"d6", u"{段}\\ red g 中文 零\r\nc d6 red", u"已替换1处"},
      {u"red", u"蓝", u"{段}\\ 蓝 g 中文 零\r\nc d6 red", u"已替换1处，另有1处被格式代码分开，未替换"},
  };
  for (const Step& step : steps) {
    dialog.Type(Combo1, step.find).Type(Combo2, step.replacement).Press(CmdReplaceAll);
    app.ExpectText(step.text);
    app.ExpectRemark(step.status);
  }
  EXPECT_EQ(formatOf(u"中文"), red);
  EXPECT_EQ(formatOf(u"零"), red);
  EXPECT_EQ(formatOf(u"蓝"), std::pair(DWORD{CFE_BOLD}, formatOf(u" g").second));
  EXPECT_EQ(formatOf(u"ed").second, RGB(255, 0, 0));

  const std::u16string before = app.Text();
  dialog.Type(Combo1, u"pard").Press(CmdReplaceAll);
  app.ExpectBox(NotFound()).Answer(Answer::kOk);
  app.ExpectText(before);
}

TEST_F(FindTest, ShowsAllPlacesAndMovesLinesToTheTop) {
  StartWith(u"笔架\r\n毛笔 退\r\n退|宣纸\r\n");
  DialogDriver dialog = Open();
  dialog.Type(Combo1, u"退").Press(CmdFindAll);
  app.ExpectText(u"笔架\r\n毛笔 退\r\n退|宣纸\r\n");
  for (const std::u16string_view shown : {u"退\r\n", u"毛笔"}) {
    app.Editor().SelectText(shown.substr(0, 2) == u"退\r" ? u"退" : shown);
    const CHARFORMAT2W format = app.Editor().SelectionFormat();
    EXPECT_EQ((format.dwEffects & CFE_BOLD) != 0, shown.front() == u'退');
    EXPECT_EQ(format.crTextColor == RGB(255, 0, 0), shown.front() == u'退');
  }
  app.Editor().Select({});
  dialog.Type(Combo1, u"退|").Press(CmdFilter);
  app.ExpectText(u"退|宣纸\r\n笔架\r\n毛笔 退\r\n");
  dialog.Press(ChkRegExpSearch).Type(Combo1, u"^.*退$").Press(CmdFilter);
  app.ExpectText(u"毛笔 退\r\n退|宣纸\r\n笔架\r\n");
  dialog.Press(CmdClose);
  dialog.WaitUntilGone();
  app.Menu("mnufindall");
  app.Editor().SelectText(u"毛笔 退");
  EXPECT_NE(app.Editor().SelectionFormat().dwEffects & CFE_BOLD, 0U);
}

TEST_F(FindTest, ShowsAllPlacesOfATextThatComesInPieces) {
  std::u16string text;
  for (int i = 0; i < 500; ++i) {
    text += i % 7 == 3 ? u"退" : u"";
    text += u"毛笔一二三四五六七八九十\r\n";
  }
  text += u"退";
  StartWith(text);
  DialogDriver dialog = Open();
  dialog.Type(Combo1, u"退").Press(CmdFindAll);
  app.ExpectText(text);
  dialog.Type(Combo1, u"退毛").Press(CmdFindNext);
  for (std::size_t at = 0; at < text.size(); at += text[at] == u'退' ? 1 : 15) {
    app.Editor().Select({{at}, 1});
    const CHARFORMAT2W format = app.Editor().SelectionFormat();
    ASSERT_EQ((format.dwEffects & CFE_BOLD) != 0, text[at] == u'退') << at;
    ASSERT_EQ(format.crTextColor == RGB(255, 0, 0), text[at] == u'退') << at;
    ASSERT_EQ(format.yHeight, 210) << at;
  }
  app.Menu("mnuUndo");
  app.ExpectText(text);
}

TEST_F(FindTest, KeepsItsHistoriesAndItsPlaceBetweenRuns) {
  StartWith(u"one two");
  DialogDriver dialog = Open();
  EXPECT_EQ(dialog.Items(Combo1),
            (std::vector<std::u16string>{std::u16string(kLineBreakToken), std::u16string(kTabToken)}));
  dialog.Type(Combo1, u"one").Press(CmdFindNext).Type(Combo1, u"two").Press(CmdFindNext);
  dialog.Choose(Combo1, u"one");
  EXPECT_EQ(dialog.Text(Combo1), u"one");
  SetWindowPos(dialog.window(), nullptr, 333, 222, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
  app.Settle();
  const auto end = [this] {
    app.Close();
    app.ExpectBox(
           {.text = u"是否存盘?", .buttons = Buttons::kYesNoCancel, .icon = Icon::kQuestion, .systemModal = true})
        .Answer(Answer::kNo);
    app.WaitForEnd();
  };
  end();

  StartWith(u"one two");
  dialog = Open();
  RECT bounds{};
  GetWindowRect(dialog.window(), &bounds);
  EXPECT_EQ(bounds.left, 333);
  EXPECT_EQ(bounds.top, 222);
  EXPECT_EQ(dialog.Items(Combo1),
            (std::vector<std::u16string>{u"two", u"one", std::u16string(kLineBreakToken), std::u16string(kTabToken)}));
  app.Press("F2");
  app.AnswerInput({.prompt = u"输入要置前的条目关键字"}, u"ne");
  EXPECT_EQ(dialog.Items(Combo1).front(), u"one");
  end();

  StoreSetting(u"FrmFind.Left", u"-90000", u"FormSaveSetting");
  StoreSetting(u"FrmFind.Top", u"900000", u"FormSaveSetting");
  StartWith(u"one two");
  dialog = Open();
  GetWindowRect(dialog.window(), &bounds);
  EXPECT_GE(bounds.left, 0);
  EXPECT_LE(bounds.bottom, GetSystemMetrics(SM_CYSCREEN));
  EXPECT_EQ(dialog.Items(Combo1).front(), u"one");
}

TEST_F(FindTest, SearchesAndReplacesInTheFilesOfAFolder) {
  std::filesystem::create_directory(folder / u"子");
  const auto gbk = folder.Write(u"账.txt", Gbk(u"旧账\r\n另一笔旧账\r\n"));
  const auto utf8 = folder.Write(std::filesystem::path(u"子") / u"信.TXT", Utf8(u"致：\n旧友“一二三”\n"));
  const auto none = folder.Write(u"无.txt", "nothing");
  const auto locked = folder.Write(u"锁.txt", Gbk(u"旧"));
  folder.Write(u"图.txt", std::string("\0\1\2", 3));
  folder.Write(u"别.log", Gbk(u"旧"));
  StartWith(u"清单");
  DialogDriver dialog = Open();
  dialog.Type(Combo1, u"旧").Type(Combo2, u"新").Press(CmdSearchInFile);
  app.ChooseFolder(folder.path());
  app.AnswerInput({.prompt = u"输入要查找的文件类型，如：*.txt;*.rtf（所有文件：*.*）：", .preset = u"*.*"},
                  u"*.txt;*.rtf");
  app.ExpectBox({.text = u"全部完成！", .systemModal = true}).Answer(Answer::kOk);
  const std::u16string list = u"清单\r\n以下文件 含有 查找内容：旧（3个文件）\r\n``" + gbk.u16string() +
                              u"\r\n    2处，第1行：旧账\r\n``" + locked.u16string() + u"\r\n    1处，第1行：旧\r\n``" +
                              utf8.u16string() +
                              u"\r\n    1处，第2行：旧友“一二三”\r\n\r\n以下文件 不含有 查找内容：旧（1个文件）\r\n``" +
                              none.u16string() + u"\r\n\r\n跳过二进制文件：1个\r\n";
  app.ExpectText(list);

  const OwnedFile lock(CreateFileW(locked.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
  app.Editor().Select({});
  dialog.Press(CmdReplaceInFile);
  Preview().Press(CmdReplaceTicked);
  app.ExpectBox(ReplaceQuestion(u"3", u"4")).Answer(Answer::kNo);
  EXPECT_EQ(ReadBytes(gbk), Gbk(u"旧账\r\n另一笔旧账\r\n"));
  Preview().Press(CmdReplaceTicked);
  app.ExpectBox(ReplaceQuestion(u"3", u"4")).Answer(Answer::kYes);
  app.ExpectBox({.text = u"没有全部替换。\n以下文件没有替换，或没有全部替换：\n" + locked.u16string() +
                         u"：没有权限，或文件正被其他程序使用",
                 .systemModal = true})
      .Answer(Answer::kOk);
  EXPECT_EQ(ReadBytes(gbk), Gbk(u"新账\r\n另一笔新账\r\n"));
  EXPECT_EQ(ReadBytes(utf8), Utf8(u"致：\n新友“一二三”\n"));
  EXPECT_EQ(ReadBytes(locked), Gbk(u"旧"));
  app.ExpectRemark(u"已在2个文件中替换3处");

  // A file dropped on the box is searched and replaced in its turn, whatever the document lists.
  app.DropOn(dialog.Control(RichTextBox1), {none});
  EXPECT_EQ(dialog.Text(RichTextBox1), u"``" + none.u16string());
  dialog.Type(Combo1, u"not").Type(Combo2, u"some").Press(CmdReplaceInFile);
  Preview().Press(CmdReplaceTicked);
  app.ExpectBox(ReplaceQuestion(u"1", u"1")).Answer(Answer::kYes);
  app.ExpectBox({.text = u"已全部替换！", .systemModal = true}).Answer(Answer::kOk);
  EXPECT_EQ(ReadBytes(none), "somehing");

  // The menu of the box takes its list away, and gives it back.
  for (const char16_t key : {u'A', u'D', u'U'}) {
    PostMessageW(dialog.Control(RichTextBox1), WM_CONTEXTMENU, 0, -1);
    app.WaitForPopup();
    app.ChooseInPopup(key);
    EXPECT_EQ(dialog.Text(RichTextBox1), key == u'D' ? u"" : u"``" + none.u16string());
  }
}

TEST_F(FindTest, ReplacesWhatIsTickedInFilesAndPutsItBack) {
  const std::string lines = Gbk(u"旧账\r\n旧友\r\n");
  const std::string rich = R"({\rtf1\ansi\ansicpg936 \b \'be\'c9\b0\par})";
  const auto one = folder.Write(u"一.txt", lines);
  const auto two = folder.Write(u"二.rtf", rich);
  const auto three = folder.Write(u"三.txt", Utf8(u"故旧“一二三”\n"));
  ForgetReplacedFiles();
  StartWith(u"``" + one.u16string() + u"\r\n``" + two.u16string() + u"\r\n``" + three.u16string());
  EXPECT_FALSE(app.MenuEntry("mnuUndoFileReplace").enabled);
  DialogDriver dialog = Open();
  dialog.Type(Combo1, u"旧").Type(Combo2, u"新").Press(CmdReplaceInFile);
  DialogDriver preview = Preview();
  EXPECT_FALSE(IsWindowEnabled(app.MainWindow()));
  const std::u16string cells[][4] = {{u"一.txt", u"1", u"旧账", u"新账"},
                                     {u"一.txt", u"2", u"旧友", u"新友"},
                                     {u"二.rtf", u"1", u"旧", u"新"},
                                     {u"三.txt", u"1", u"故旧“一二三”", u"故新“一二三”"}};
  for (int row = 0; row < 4; ++row) {
    for (int column = 0; column < 4; ++column) {
      EXPECT_EQ(preview.Cell(LstPlaces, row, column), cells[row][column]);
    }
  }
  // The box before the second row is clicked, the last row is toggled by the space bar, forth and back.
  const HWND list = preview.Control(LstPlaces);
  const auto isTicked = [list](int row) {
    return Send(list, LVM_GETITEMSTATE, static_cast<WPARAM>(row), LVIS_STATEIMAGEMASK) == INDEXTOSTATEIMAGEMASK(2);
  };
  Click(list, 1);
  EXPECT_FALSE(isTicked(1));
  Send(list, WM_KEYDOWN, VK_END);
  Send(list, WM_KEYDOWN, VK_SPACE);
  EXPECT_FALSE(isTicked(3));
  EXPECT_EQ(preview.Text(LblCount), u"已勾选2个文件中的2处，共3个文件4处");
  Send(list, WM_KEYDOWN, VK_SPACE);
  EXPECT_TRUE(isTicked(3));
  preview.Press(CmdReplaceTicked);
  app.ExpectBox(ReplaceQuestion(u"3", u"3")).Answer(Answer::kYes);
  app.ExpectBox({.text = u"已全部替换！", .systemModal = true}).Answer(Answer::kOk);
  EXPECT_EQ(ReadBytes(one), Gbk(u"新账\r\n旧友\r\n"));
  EXPECT_NE(ReadBytes(two), rich);
  EXPECT_EQ(ReadBytes(three), Utf8(u"故新“一二三”\n"));
  EXPECT_TRUE(IsWindowEnabled(app.MainWindow()));

  dialog.Close();
  app.Menu("mnuUndoFileReplace");
  app.ExpectBox({.text = u"上次替换了3个文件。现在还原成替换之前的样子，以后又改动过的文件不动。\n是否继续？",
                 .buttons = Buttons::kYesNo,
                 .icon = Icon::kQuestion,
                 .defaultAnswer = Answer::kNo})
      .Answer(Answer::kYes);
  app.ExpectRemark(u"已还原3个文件");
  EXPECT_EQ(ReadBytes(one), lines);
  EXPECT_EQ(ReadBytes(two), rich);
  EXPECT_EQ(ReadBytes(three), Utf8(u"故旧“一二三”\n"));
  EXPECT_FALSE(app.MenuEntry("mnuUndoFileReplace").enabled);
}

TEST_F(FindTest, StaysInTheChosenLinesAndOutOfTheWay) {
  std::u16string text;
  for (int line = 0; line < 60; ++line) {
    text += u"第行的字\r\n";
  }
  StartWith(text);
  DialogDriver dialog = Open();
  app.Editor().Select({{60}, 300});  // fifty lines
  dialog.Type(Combo1, u"字").Press(ChkInSelection);
  app.ExpectRemark(u"只在所选的 50 行中查找、替换");
  for (std::size_t hit = 0; hit < 51; ++hit) {
    dialog.Press(CmdFindNext);
    ExpectSelected({{63 + hit % 50 * 6}, 1});
    RECT window{};
    GetWindowRect(dialog.window(), &window);
    const POINT place = app.Editor().ScreenPlace(63 + hit % 50 * 6);
    EXPECT_FALSE(PtInRect(&window, place)) << hit;
  }
  app.ExpectRemark(u"第 1 处，共 50 处（已到所选范围末，从所选范围首接着找）");
  dialog.Type(Combo2, u"词").Press(CmdReplaceAll);
  app.ExpectRemark(u"已替换50处");
  EXPECT_EQ(app.Text().substr(0, 66), text.substr(0, 63) + u"词\r\n");
  EXPECT_EQ(app.Text().substr(354), u"第行的词\r\n" + text.substr(360));
}

TEST_F(FindTest, EnterOnAPlaceOpensTheFileThere) {
  const auto file = folder.Write(u"有.txt", Gbk(u"一\n二\n词\n"));
  const auto list = folder.Write(u"清单.txt", Gbk(u"``" + file.u16string() + u"\r\n    1处，第3行：词\r\n"));
  app.Start();
  app.Open(list);
  app.Editor().Select({{0}, 0});
  app.Press("Enter");  // a line break, for here is no place
  app.Menu("mnuUndo");
  app.Menu("mnuSave");
  app.Editor().Select({{file.u16string().size() + 10}, 0});
  app.Press("Enter");
  app.ExpectText(u"一\r\n二\r\n词\r\n");
  ExpectSelected({{6}, 0});
}

TEST_F(FindTest, FollowsThePathsInTheDocument) {
  const auto file = folder.Write(u"有.txt", Gbk(u"词"));
  StartWith(u"说明\r\n``" + file.u16string() + u"\r\n");
  app.Menu("mnuFindInFile");
  app.AnswerInput({.prompt = u"输入要在各行所列的文件、目录中寻找的字串："}, u"词");
  app.ExpectBox({.text = u"全部完成！", .systemModal = true}).Answer(Answer::kOk);
  EXPECT_NE(app.Text().find(u"含有 查找内容：词（1个文件）\r\n``" + file.u16string()), std::u16string::npos);
  app.Editor().Select({{6}, 0});
  app.Menu("mnuGoToThis");
  EXPECT_EQ(app.Editor().SelectedText(), u"``" + file.u16string());
  app.ExpectBox({.text = u"[是]用文本查看器打开,[否]用关联程序打开,[取消]退出",
                 .buttons = Buttons::kYesNoCancel,
                 .icon = Icon::kQuestion})
      .Answer(Answer::kCancel);
}

}  // namespace
}  // namespace scrivanta
