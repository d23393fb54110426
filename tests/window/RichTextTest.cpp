// Rich text that the edit control does not give back as a whole.
#include <windows.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <string>
#include <utility>
#include <vector>

#include "search/FrmFindControls.h"
#include "text/DecimalText.h"
#include "text/win/WideText.h"
#include "win/Clipboard.h"
#include "window/driver/Clipboard.h"
#include "window/driver/WindowProbe.h"
#include "window/driver/WindowTest.h"

namespace scrivanta {
namespace {

class RichTextTest : public WindowTest {
 protected:
  // Of each unit: b for bold, r for red, x for both, in capitals for italics too, | for the end of a line.
  std::string Formats() const {
    const EditBoxDriver box = app.Editor();
    const TextRange selection = box.Selection();
    const std::u16string text = box.Text();
    std::string formats;
    for (std::size_t at = 0; at < text.size(); ++at) {
      if (text[at] == u'\r') {
        formats += '|';
      } else if (text[at] != u'\n') {
        box.Select({{at}, 1});
        const CHARFORMAT2W format = box.SelectionFormat();
        const bool isItalic = (format.dwEffects & CFE_ITALIC) != 0;
        const bool isRed = (format.dwEffects & CFE_AUTOCOLOR) == 0 && format.crTextColor == RGB(255, 0, 0);
        const bool isBold = (format.dwEffects & CFE_BOLD) != 0;
        const char letter = isRed && isBold ? 'x' : isRed ? 'r' : isBold ? 'b' : '-';
        formats += isItalic ? static_cast<char>(std::toupper(letter)) : letter;
      }
    }
    box.Select(selection);
    return formats;
  }
};

// Behind the program's back, as what is dropped on the box: a bitmap of one point.
void PutPictureInto(const EditBoxDriver& box) {
  std::string rtf =
      "{\\rtf1{\\pict\\dibitmap0\\picw1\\pich1\\picwgoal300\\pichgoal300 "
      "2800000001000000010000000100180000000000040000000000000000000000000000000000000000000000}}";
  EDITSTREAM stream{};
  stream.dwCookie = reinterpret_cast<DWORD_PTR>(&rtf);
  stream.pfnCallback = [](DWORD_PTR cookie, BYTE* buffer, LONG room, LONG* written) -> DWORD {
    auto& rest = *reinterpret_cast<std::string*>(cookie);
    *written = static_cast<LONG>(rest.copy(reinterpret_cast<char*>(buffer), static_cast<std::size_t>(room)));
    rest.erase(0, static_cast<std::size_t>(*written));
    return 0;
  };
  SendMessageW(box.window(), EM_STREAMIN, SF_RTF | SFF_SELECTION, reinterpret_cast<LPARAM>(&stream));
}

// How many there are of what a control does not hold.
struct Kept {
  std::size_t pictures;
  std::size_t links;
  std::size_t notes;
  std::size_t comments;
  std::size_t headers;
  std::size_t footers;

  bool operator==(const Kept&) const = default;
};

// With # for what stands in the place of such things.
std::u16string Marked(std::u16string text) {
  std::ranges::replace_if(
      text, [](char16_t unit) { return unit >= 0xE900 && unit < 0xF900; }, u'#');
  return text;
}

std::size_t Count(std::string_view bytes, std::string_view what) {
  std::size_t count = 0;
  for (std::size_t at = bytes.find(what); at != std::string_view::npos; at = bytes.find(what, at + 1)) {
    ++count;
  }
  return count;
}

Kept KeptIn(std::string_view rtf) {
  return {Count(rtf, "{\\sn pib}{\\sv {\\pict\\pngblip"),
          Count(rtf, "HYPERLINK \"http://example.com/a\""),
          Count(rtf, "{\\*\\footnote"),
          Count(rtf, "{\\*\\annotation"),
          Count(rtf, "{\\header"),
          Count(rtf, "{\\footer")};
}

// What begins a line on the screen begins one of the text, for commands and files as well.
TEST_F(RichTextTest, ALineOfTheScreenIsOneOfTheText) {
  app.Start();
  app.Open(folder.Write(u"换行.rtf", "{\\rtf1\\ansi\\ansicpg936 one\\line two\\b three\\line\\b0 four}"));
  app.ExpectText(u"one\r\ntwothree\r\nfour");
  app.Press("Ctrl+End");
  app.Press("Shift+Enter");
  app.Type(u"five");
  app.ExpectText(u"one\r\ntwothree\r\nfour\r\nfive");
  PutOnClipboard(app.MainWindow(), u"six\vseven", "{\\rtf1 six\\line seven}");
  app.Menu("mnuPaste");
  app.ExpectText(u"one\r\ntwothree\r\nfour\r\nfivesix\r\nseven");
  app.Menu("mnuUndo");
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

// What stays brings its formats along: lines that lose their blanks, that go elsewhere, that have places replaced.
TEST_F(RichTextTest, CommandsLeaveTheFormatsOfWhatStays) {
  app.Start();
  app.Open(folder.Write(u"格式.rtf",
                        "{\\rtf1\\ansi\\ansicpg936{\\fonttbl{\\f0\\fnil\\fcharset134 SimSun;}}"
                        "{\\colortbl ;\\red255\\green0\\blue0;}\\uc1\\pard\\f0\\fs21 "
                        "  pear \\b two\\b0  \\par\\par \\cf1 fig\\cf0  one\\par\\par   \\b apple\\b0  two}"));
  app.ExpectText(u"  pear two \r\n\r\nfig one\r\n\r\n  apple two");
  EXPECT_EQ(Formats(), "-------bbb-||rrr----||--bbbbb----");

  app.Editor().SelectText(u"ig");
  app.Editor().Select({app.Editor().Selection().start, 0});
  app.Menu("mnuTrimLine");
  app.ExpectText(u"pear two\r\n\r\nfig one\r\n\r\napple two");
  EXPECT_EQ(Formats(), "-----bbb||rrr----||bbbbb----");
  app.Menu("mnuDelEmptyLine");
  app.ExpectText(u"pear two\r\nfig one\r\napple two");
  EXPECT_EQ(Formats(), "-----bbb|rrr----|bbbbb----");
  EXPECT_EQ(app.Editor().Selection(), (TextRange{{11}, 0}));

  app.Menu("mnuFind");
  DialogDriver find = app.ExpectDialog(u"查找");
  find.Type(Combo1, u"apple").Press(CmdFilter);
  app.ExpectText(u"apple two\r\npear two\r\nfig one");
  EXPECT_EQ(Formats(), "bbbbb----|-----bbb|rrr----");
  EXPECT_EQ(app.Editor().Selection(), (TextRange{{22}, 0}));
  find.Type(Combo1, u"e").Type(Combo2, u"E+").Press(CmdReplaceAll);
  app.ExpectText(u"applE+ two\r\npE+ar two\r\nfig onE+");
  EXPECT_EQ(Formats(), "bbbbbb----|------bbb|rrr-----");
  for (int step = 0; step < 4; ++step) {
    app.Menu("mnuUndo");
  }
  app.ExpectText(u"  pear two \r\n\r\nfig one\r\n\r\n  apple two");
  EXPECT_EQ(Formats(), "-------bbb-||rrr----||--bbbbb----");
}

TEST_F(RichTextTest, FormatsThatHaveToGoAreSaidToGo) {
  app.Start();
  app.Open(folder.Write(
      u"表格.rtf",
      "{\\rtf1\\ansi\\ansicpg936\\b one\\b0\\par\\trowd\\cellx1000\\cellx2000 two\\intbl\\cell three\\intbl"
      "\\cell\\row\\pard four\\par}"));
  app.Menu("mnuFind");
  app.ExpectDialog(u"查找").Type(Combo1, u"four").Press(CmdFilter);
  EXPECT_TRUE(app.Text().starts_with(u"four\r\none"));
  app.ExpectRemark(u"含有 1 行在前，其余在后，格式没有保留（有图片或表格等），可以撤消");
  app.Menu("mnuUndo");
  EXPECT_TRUE(app.Text().starts_with(u"one"));
  EXPECT_TRUE(Formats().starts_with("bbb|"));
}

TEST_F(RichTextTest, TheViewAndTheCaretStayWithTheirLines) {
  app.Start();
  std::u16string lines;
  for (int line = 1; line <= 400; ++line) {
    lines += std::u16string(line % 3 == 0 ? 1 : 0, u'\n') + DecimalText(line) + u" 行 \n";
  }
  app.Open(folder.Write(u"行.txt", Utf8(lines)));
  const auto top = [this] {
    const HWND box = app.Editor().window();
    std::array<wchar_t, 40> line = {39};
    const auto first = static_cast<WPARAM>(SendMessageW(box, EM_GETFIRSTVISIBLELINE, 0, 0));
    const auto length = SendMessageW(box, EM_GETLINE, first, reinterpret_cast<LPARAM>(line.data()));
    const std::u16string text = FromWide({line.data(), static_cast<std::size_t>(length)});
    return text.substr(0, text.find(u' '));
  };
  app.Editor().SelectText(u"200 行");
  app.Editor().Select({app.Editor().Selection().start, 0});
  app.Press("Right");
  while (top() == u"\r") {  // one that goes
    SendMessageW(app.Editor().window(), EM_LINESCROLL, 0, 1);
  }
  const std::u16string shown = top();
  ASSERT_NE(shown, u"1");
  for (const char* const command : {"mnuTrimLine", "mnuDelEmptyLine"}) {
    app.Menu(command);
    app.Settle();
    EXPECT_EQ(Shown(top()), Shown(shown)) << command;
    app.Editor().Insert(u"x");
    EXPECT_NE(app.Text().find(u"\n2x00 行"), std::u16string::npos) << command;
    app.Menu("mnuUndo");
  }
}

// Each change of formats is a step, and what is erased, typed over or replaced comes back with its formats.
TEST_F(RichTextTest, UndoBringsBackFormats) {
  app.Start();
  app.Open(folder.Write(u"格式.rtf",
                        "{\\rtf1\\ansi\\ansicpg936{\\fonttbl{\\f0\\fnil\\fcharset134 SimSun;}}"
                        "{\\colortbl ;\\red255\\green0\\blue0;}\\uc1\\pard\\f0\\fs21 one \\b t\\cf1 w\\cf0 o\\b0\\par "
                        "three \\cf1 four\\cf0}"));
  std::vector<std::pair<std::u16string, std::string>> states;
  const auto note = [&] {
    app.Settle();
    states.emplace_back(app.Text(), Formats());
  };
  note();
  EXPECT_EQ(states.back().second, "----bxb|------rrrr");
  app.Editor().SelectText(u"hree");
  app.Menu("mnuBold");
  note();
  EXPECT_EQ(states.back().second, "----bxb|-bbbb-rrrr");
  app.Editor().SelectText(u"wo\r\nth");
  app.Press("Delete");
  note();
  app.Editor().SelectText(u"our");
  app.Type(u"x");
  note();
  app.Editor().SelectText(u"e t");
  app.Menu("mnuAllcaps");
  note();
  EXPECT_EQ(states.back(), std::pair(std::u16string(u"onE Tree fx"), std::string("----bbbb-rr")));
  app.Editor().SelectText(u"E Tr");
  app.Menu("mnuCut");
  note();
  app.Editor().Select({{0}, 0});
  app.Menu("mnuPaste");
  note();
  EXPECT_EQ(states.back(), std::pair(std::u16string(u"E Tronee fx"), std::string("--bb--bb-rr")));
  app.Editor().SelectText(u"ronee");
  app.Menu("mnuPaste");
  note();
  app.Menu("mnuSelectAll");
  app.Menu("mnuItalic");
  app.Press("Ctrl+End");
  note();
  app.Press("Back");
  app.Press("Back");
  note();
  for (int times = 0; times < 2; ++times) {
    app.Menu("mnuUndo");
    for (std::size_t state = states.size() - 1; state-- > 0;) {
      app.ExpectText(states[state].first);
      EXPECT_EQ(Formats(), states[state].second) << state;
      if (state > 0) {
        app.Menu("mnuUndo");
      }
    }
    for (std::size_t state = 1; state < states.size(); ++state) {
      app.Menu("mnuRedo");
      app.ExpectText(states[state].first);
      EXPECT_EQ(Formats(), states[state].second) << state;
    }
  }
}

TEST_F(RichTextTest, TheFontLineChangesWhatIsChangedInIt) {
  app.Start();
  app.Open(folder.Write(u"字体.rtf",
                        "{\\rtf1\\ansi\\ansicpg936{\\fonttbl{\\f0\\fnil\\fcharset0 Arial;}}"
                        "{\\colortbl ;\\red255\\green0\\blue0;}\\uc1\\pard\\f0\\fs24 one \\b two\\b0  \\cf1 red}"));
  const InputQuestion question{
      .prompt = u"字体设置：",
      .preset = u"字体：Arial|字号：12|颜色：0|粗体：False|斜体：False|下划线：False|删除线：False",
      .hasFields = true};
  app.Menu("mnuFont");
  app.AnswerInput(question, question.preset);
  app.Settle();
  EXPECT_FALSE(app.MenuEntry("mnuUndo").enabled);
  app.Menu("mnuFont");
  app.AnswerInput(question, u"字号：20");
  app.Settle();
  const auto sizeOf = [this](std::u16string_view text) {
    app.Editor().SelectText(text);
    return app.Editor().SelectionFormat().yHeight;
  };
  EXPECT_EQ(sizeOf(u"one"), 400);
  EXPECT_EQ(sizeOf(u"red"), 400);
  EXPECT_EQ(Formats(), "----bbb-rrr");
  app.Menu("mnuUndo");
  EXPECT_EQ(sizeOf(u"two"), 240);
  EXPECT_EQ(Formats(), "----bbb-rrr");
}

TEST_F(RichTextTest, TablesStayTables) {
  const auto file = folder.Write(u"表格.rtf",
                                 "{\\rtf1\\ansi\\ansicpg936 before\\par"
                                 "\\trowd\\cellx2000\\cellx4000\\pard\\intbl 12 one\\cell\\b two\\b0\\cell\\row"
                                 "\\trowd\\cellx1000\\cellx4000\\pard\\intbl  x\\cell 4\\line 5\\cell\\row"
                                 "\\pard after\\par}");
  app.Start();
  app.Open(file);
  app.Settle();
  const std::u16string text = app.Text();
  EXPECT_NE(text.find(u"12 one\ttwo\t"), std::u16string::npos);
  app.Press("Ctrl+End");
  app.Type(u"!");
  app.Menu("mnuSave");
  const std::string saved = ReadBytes(file);
  app.Open(file);
  app.ExpectText(text + u"!");
  app.Menu("mnuSave");
  EXPECT_EQ(ReadBytes(file), saved);
}

// Written by a word processor: a picture, a link, a footnote, a comment, a table, a header and a footer.
TEST_F(RichTextTest, WhatTheControlDoesNotHoldIsKept) {
  const auto file = folder.Write(u"文稿.rtf", ReadBytes(WINDOW_TEST_DATA "/writer.rtf"));
  app.Start();
  app.Open(file);
  app.Settle();
  const std::u16string text = app.Text();
  EXPECT_TRUE(
      Marked(text).starts_with(u"标题 红色粗体 正文\r\n图片#之后\r\n见 #链接文字# 和脚注#以后。书签\r\n批注#在此\r\n"))
      << Utf8(Marked(text));

  app.Press("Ctrl+End");
  app.Type(u"!");
  app.Menu("mnuSave");
  app.ExpectBox(
         {.text = u"文件里有编辑框不能保留的内容，存盘以后就没有了：\n书签\n\n“是”：原来的文件先留一份，再存盘：\n" +
                  (folder / u"文稿-原文件.rtf").u16string() + u"\n“否”：直接存盘\n“取消”：不存盘",
          .buttons = Buttons::kYesNoCancel,
          .icon = Icon::kWarning})
      .Answer(Answer::kNo);
  app.Settle();
  EXPECT_EQ(KeptIn(ReadBytes(file)), (Kept{1, 1, 1, 1, 2, 2}));
  app.Open(file);
  app.ExpectText(text + u"!");

  // They go where the text goes: copied, pasted, taken back, and through a command that knows lines only.
  app.Editor().SelectText(text.substr(0, text.find(u"批注")));
  app.Menu("mnuCopy");
  EXPECT_EQ(TextOnClipboard(), u"标题 红色粗体 正文\r\n图片之后\r\n见 链接文字 和脚注以后。书签\r\n");
  app.Press("Ctrl+End");
  app.Menu("mnuPaste");
  app.Menu("mnuSave");
  EXPECT_EQ(KeptIn(ReadBytes(file)), (Kept{2, 2, 2, 1, 2, 2}));
  app.Menu("mnuUndo");
  app.ExpectText(text + u"!");
  app.Menu("mnuSave");
  EXPECT_EQ(KeptIn(ReadBytes(file)), (Kept{1, 1, 1, 1, 2, 2}));
  app.Menu("mnuDelEmptyLine");
  app.Menu("mnuSave");
  EXPECT_EQ(KeptIn(ReadBytes(file)), (Kept{1, 1, 1, 1, 2, 2}));
}

// The control ends at the picture what it gives and reports no error.
TEST_F(RichTextTest, WhatTheControlGivesOnlyInPartReplacesNothing) {
  constexpr std::string_view kBytes = "{\\rtf1\\ansi\\ansicpg936 onetwo\\par}";
  const auto file = folder.Write(u"图片.rtf", kBytes);
  app.Start();
  app.Open(file);
  app.Editor().Select({{3}, 0});
  PutPictureInto(app.Editor());
  app.Press("Ctrl+End");
  app.Type(u"three");
  app.Menu("mnuSave");
  app.ExpectBox({.text = u"文档里有编辑框不能完整给出的内容（例如图片），带格式的文本没有全部取出，因此没有进行。\n"
                         u"文档和原来的文件都没有改变。另存为 .txt 文件可以保存全部文字。",
                 .icon = Icon::kCritical,
                 .systemModal = true})
      .Answer(Answer::kOk);
  EXPECT_EQ(ReadBytes(file), kBytes);

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
