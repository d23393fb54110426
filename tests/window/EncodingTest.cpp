// A document comes back from the program in the encoding and with the line ends it came with.
#include <string>
#include <string_view>
#include <vector>

#include "window/driver/WindowProbe.h"
#include "window/driver/WindowTest.h"

namespace scrivanta {
namespace {

using namespace std::string_literals;

class EncodingTest : public WindowTest {};

struct EncodedDocument {
  const char* name;
  std::string bytes;
  std::u16string shown;
  std::string withEnd;  // what is saved when a person has typed "end" behind the last character
};

std::string Utf16LittleEndian(std::u16string_view text) {
  std::string bytes;
  for (const char16_t unit : text) {
    bytes += static_cast<char>(unit & 0xFF);
    bytes += static_cast<char>(unit >> 8);
  }
  return bytes;
}

std::vector<EncodedDocument> Documents() {
  const std::u16string text = u"第一行\r\n第二行，汉字\r\n";
  const std::u16string textWithEnd = text + u"end";
  return {
      {"GBK", Gbk(text), text, Gbk(textWithEnd)},
      {"GB18030, four bytes", "\x81\x30\x81\x30 \x94\x39\xda\x33\r\n"s, u"\x80 💩\r\n",
       "\x81\x30\x81\x30 \x94\x39\xda\x33\r\nend"},
      {"UTF-8", Utf8(text), text, Utf8(textWithEnd)},
      {"UTF-16", "\xFF\xFE" + Utf16LittleEndian(text), text, "\xFF\xFE" + Utf16LittleEndian(textWithEnd)},
      {"line feeds", Gbk(u"甲\n乙\n"), u"甲\r\n乙\r\n", Gbk(u"甲\n乙\nend")},
      {"ends in half a character", Gbk(u"半个字") + "\xD7", u"半个字\xDCD7",
       Gbk(u"半个字") + "\xD7"
                        "end"},
  };
}

TEST_F(EncodingTest, DocumentsKeepTheirEncodingAndLineEnds) {
  app.Start();
  for (const EncodedDocument& document : Documents()) {
    SCOPED_TRACE(document.name);
    const auto file = folder.Write(u"文件.txt", document.bytes);
    app.Open(file);
    EXPECT_EQ(Shown(app.Text()), Shown(document.shown));

    std::filesystem::remove(folder / u"副本.txt");
    app.Menu("mnuSaveAs");
    app.ChooseFile(folder / u"副本.txt");
    EXPECT_EQ(ReadBytes(folder / u"副本.txt"), document.bytes);

    app.Press("Ctrl+End");
    app.Type(u"end");
    app.Menu("mnuSave");
    EXPECT_EQ(ReadBytes(folder / u"副本.txt"), document.withEnd);
  }
}

TEST_F(EncodingTest, WhatIsNoTextIsOpenedForReadingWhenThePersonAgrees) {
  const std::string bytes("a\0b\0\r\n\0", 7);
  const auto file = folder.Write(u"空字符.dat", bytes);
  const Message question{.text = u"不是文本文件：\n" + file.u16string() + u"\n是否以只读方式打开？",
                         .buttons = Buttons::kYesNo,
                         .icon = Icon::kWarning,
                         .defaultAnswer = Answer::kNo};
  app.Start();
  app.Open(file);
  app.ExpectBox(question).Answer(Answer::kNo);
  app.ExpectStatus(u"状态");

  app.Open(file);
  app.ExpectBox(question).Answer(Answer::kYes);
  app.ExpectStatus(file.u16string());
  const std::u16string shown = app.Text();
  app.Type(u"x");
  app.ExpectText(shown);
  // No command changes it: those that do nothing else are grey, the others say so.
  for (const char* const name : {"mnuTrimLine", "mnuSort", "mnuBold", "mnuPaste", "mnuEncryptSelectedText"}) {
    EXPECT_FALSE(app.MenuEntry(name).enabled) << name;
  }
  for (const char* const name : {"mnuSaveAs", "mnuFind", "mnuStatistics", "mnuSelectAll"}) {
    EXPECT_TRUE(app.MenuEntry(name).enabled) << name;
  }
  app.Press("Ctrl+;");
  app.ExpectBox({.text = u"文档是以只读方式打开的，没有改动。\n另存为其他文件以后就可以改动。",
                 .icon = Icon::kCritical,
                 .systemModal = true})
      .Answer(Answer::kOk);
  app.ExpectText(shown);
  app.Menu("mnuSaveAs");
  app.ChooseFile(folder / u"副本.dat");
  EXPECT_EQ(ReadBytes(folder / u"副本.dat"), bytes);
  EXPECT_TRUE(app.MenuEntry("mnuTrimLine").enabled);

  // What stands behind a NUL is text as well.
  app.Menu("mnuSelectAll");
  app.Menu("mnuAllcaps");
  app.Menu("mnuSave");
  EXPECT_EQ(ReadBytes(folder / u"副本.dat"), std::string("A\0B\0\r\n\0", 7));
  app.Menu("mnuUndo");
  app.Menu("mnuSave");
  EXPECT_EQ(ReadBytes(folder / u"副本.dat"), bytes);
}

TEST_F(EncodingTest, CommandsWorkInTheDocumentsEncoding) {
  const std::u16string text = u"😊 表情\r\n\r\n汉字\r\n";
  const auto file = folder.Write(u"网页.txt", Utf8(text));
  app.Start();
  app.Open(file);
  app.Menu("mnuDelEmptyLine");
  app.ExpectText(u"😊 表情\r\n汉字");
  app.Menu("mnuSave");
  EXPECT_EQ(ReadBytes(file), Utf8(u"😊 表情\r\n汉字"));
}

TEST_F(EncodingTest, MixedLineEndsAreToldUntilTheNextCommand) {
  app.Start();
  app.Open(folder.Write(u"混合.txt", "one\ntwo\r\n"));
  app.Press("Ctrl+End");
  app.Type(u"three");
  app.ExpectRemark(u"行尾不一致，存盘时将统一为 CR LF");
  app.Menu("mnuSave");
  app.ExpectRemark(u"行尾不一致，存盘时已统一为 CR LF");
}

}  // namespace
}  // namespace scrivanta
