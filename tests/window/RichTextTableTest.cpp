// What of a rich text comes through what, as docs/RICH-TEXT.md has it in a table.
#include <algorithm>
#include <array>
#include <cctype>
#include <iterator>
#include <sstream>
#include <string>

#include "window/driver/LeftBehind.h"
#include "window/driver/WindowTest.h"

namespace scrivanta {
namespace {

// A line of the document, and what is found of it in a rich text: before its word in the same line, or anywhere.
struct Feature {
  const char* name;
  const char* rtf;
  const char* trace;
  bool isAnywhere = false;
};
constexpr std::array kFeatures = {
    Feature{"粗体、斜体", "{\\b\\i W}", "\\b \\i"},
    Feature{"下划线", "{\\ul W}", "\\ul"},
    Feature{"删除线", "{\\strike W}", "\\strike"},
    Feature{"字的颜色", "{\\cf1 W}", "\\cf#"},
    Feature{"字的背景色", "{\\highlight1 W}", "\\highlight#"},
    Feature{"字体", "{\\f1 W}", "\\f#"},
    Feature{"字号", "{\\fs46 W}", "\\fs46"},
    Feature{"上标、下标", "{\\super W}", "\\super"},
    Feature{"隐藏的字", "{\\v W}", "\\v"},
    Feature{"对齐", "\\qc W", "\\qc"},
    Feature{"缩进", "\\li400 W", "\\li400"},
    Feature{"项目符号", "{\\pntext *\\tab}{\\*\\pn\\pnlvlblt\\pnindent200{\\pntxtb *}}W", "\\pnlvlblt"},
    Feature{"表格", "\\trowd\\cellx2000\\cellx4000\\intbl W\\cell x\\cell\\row\\pard", "\\trowd \\intbl"},
    Feature{"图片", "W{\\*\\shppict{\\pict\\pngblip 89504e47}}", "\\pngblip", true},
    Feature{"对象", "W{\\object\\objemb{\\*\\objdata 00}}", "\\objemb", true},
    Feature{"链接和其他域", "{\\field{\\*\\fldinst HYPERLINK \"a\"}{\\fldrslt W}}", "HYPERLINK", true},
    Feature{"脚注、尾注", "W{\\super\\chftn{\\footnote\\chftn x}}", "\\footnote", true},
    Feature{"批注", "W{\\*\\atnid a}\\chatn{\\*\\annotation x}", "\\annotation", true},
    Feature{"分页", "W\\page x", "\\page", true},
    Feature{"页眉、页脚", "W", "\\header \\footer", true},
    Feature{"纸张和页边", "W", "\\paperw11906", true},
    Feature{"文档属性", "W", "\\title", true},
    Feature{"样式的名字", "\\s1 W", "\\s1"},
    Feature{"自动编号", "{\\listtext 1.\\tab}\\ls1 W", "\\ls1"},
    Feature{"书签", "{\\*\\bkmkstart b}W{\\*\\bkmkend b}", "\\bkmkstart", true},
    Feature{"文字效果（小型大写、阴影等）", "{\\scaps W}", "\\scaps"},
    Feature{"修订标记", "{\\revised W}", "\\revised"},
};

std::string WordOf(std::size_t feature) {
  return "word" + std::string(1, static_cast<char>('a' + feature / 26)) + static_cast<char>('a' + feature % 26) + "z";
}

// Between two features a line without format.
std::string Document() {
  std::string rtf =
      "{\\rtf1\\ansi\\ansicpg936\\uc1\\deff0{\\fonttbl{\\f0\\fcharset134 \\'cb\\'ce\\'cc\\'e5;}{\\f1\\fswiss Arial;}}"
      "{\\colortbl;\\red255\\green0\\blue0;}{\\stylesheet{\\s1 Other;}}{\\info{\\title T}}\\paperw11906"
      "{\\header h\\par}{\\footer f\\par}";
  for (std::size_t i = 0; i < kFeatures.size(); ++i) {
    std::string line = kFeatures[i].rtf;
    line.replace(line.find('W'), 1, WordOf(i));
    rtf += "\\pard\\plain -\\par\\pard\\plain " + line + "\\par\n";
  }
  return rtf + "\\pard\\plain -\\par\\par\\par}";
}

// A control word with its number; # stands for any but 0.
bool HasWord(std::string_view rtf, std::string_view word) {
  const bool hasAnyNumber = word.ends_with('#');
  word = word.substr(0, word.size() - (hasAnyNumber ? 1 : 0));
  for (std::size_t at = rtf.find(word); at != std::string_view::npos; at = rtf.find(word, at + 1)) {
    const std::string_view next = rtf.substr(at + word.size(), 1);
    if (hasAnyNumber ? next >= "1" && next <= "9"
                     : next.empty() || std::isalnum(static_cast<unsigned char>(next[0])) == 0) {
      return true;
    }
  }
  return false;
}

bool Has(std::string_view rtf, std::size_t feature) {
  const std::size_t word = rtf.find(WordOf(feature));
  if (word == std::string_view::npos) {
    return false;
  }
  if (!kFeatures[feature].isAnywhere) {
    const std::size_t line = rtf.rfind("\\par\r\n", word);
    if (line == std::string_view::npos) {
      return false;
    }
    rtf = rtf.substr(line, word - line);
  }
  std::istringstream traces(kFeatures[feature].trace);
  return std::all_of(std::istream_iterator<std::string>(traces), {},
                     [rtf](const std::string& trace) { return HasWord(rtf, trace); });
}

class RichTextTableTest : public WindowTest {
 protected:
  void OpenDocument() { app.Open(folder.Write(u"格式.rtf", Document())); }
  std::string Saved() {
    app.Menu("mnuSave");
    app.ExpectBox({.text = u"文件里有编辑框不能保留的内容，存盘以后就没有了：\n样式的名字、自动编号、书签、修订标记、"
                           u"文字效果（小型大写、阴影、间距等）\n\n“是”：原来的文件先留一份，再存盘：\n" +
                           (folder / u"格式-原文件.rtf").u16string() + u"\n“否”：直接存盘\n“取消”：不存盘",
                   .buttons = Buttons::kYesNoCancel,
                   .icon = Icon::kWarning})
        .Answer(Answer::kNo);
    app.Settle();
    return ReadBytes(folder / u"格式.rtf");
  }
  std::string Pasted() {
    OpenDocument();
    app.Menu("mnuSelectAll");
    app.Menu("mnuCopy");
    const auto other = folder.Write(u"别处.rtf", "{\\rtf1 }");
    app.Open(other);
    app.Menu("mnuPaste");
    app.Menu("mnuSave");
    return ReadBytes(other);
  }
  std::string Undone() {
    OpenDocument();
    app.Menu("mnuDelEmptyLine");
    app.Menu("mnuUndo");
    return Saved();
  }
};

TEST_F(RichTextTableTest, IsTheOneInTheDocumentation) {
  app.Start();
  OpenDocument();
  const std::string saved = Saved();
  app.Press("Ctrl+End");
  app.Type(u"!");
  const std::string snapshot = WaitForSnapshot().rtf.value_or("");
  app.Menu("mnuSave");
  const std::array rtfs = {saved, snapshot, Pasted(), Undone()};

  std::string table = "| | 打开再存盘 | 恢复用的副本 | 复制、粘贴 | 命令和它的撤消 |\n|---|---|---|---|---|\n";
  for (std::size_t i = 0; i < kFeatures.size(); ++i) {
    table += std::string("| ") + kFeatures[i].name + " |";
    for (const std::string& rtf : rtfs) {
      table += Has(rtf, i) ? " 保留 |" : " – |";
    }
    table += "\n";
  }
  EXPECT_NE(ReadBytes(WINDOW_TEST_DATA "/../../../docs/RICH-TEXT.md").find(table), std::string::npos)
      << "the table as it is now:\n"
      << table;
}

}  // namespace
}  // namespace scrivanta
