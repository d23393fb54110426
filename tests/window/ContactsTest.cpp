// A phone book on its way through the window: from the table in the document to cards, and from the cards to a sheet.
#include "sheets/SheetFile.h"
#include "window/driver/WindowTest.h"

namespace scrivanta {
namespace {

using ContactsTest = WindowTest;

TEST_F(ContactsTest, ATableBecomesCardsAndTheCardsASheet) {
  const std::filesystem::path cards = folder.path() / u"名片.vcf";
  const std::filesystem::path sheet = folder.path() / u"表格.xlsx";
  const std::filesystem::path document =
      folder.Write(u"电话簿.txt", Gbk(u"姓名\t手机\r\n张三\t0013800138000\r\n张三\t+86 0013800138000\r\n"));
  app.Start();
  app.Open(document);
  app.Menu("mnuAndroidPhoneBookDecode");
  const Message duplicates = {
      .text = u"有1组联系人姓名和号码都相同：\n张三  0013800138000（2条）\n要把每组合并成一条吗？",
      .title = u"重复的联系人",
      .buttons = Buttons::kYesNoCancel,
      .icon = Icon::kQuestion,
      .defaultAnswer = Answer::kNo};
  app.ExpectBox(duplicates).Answer(Answer::kYes);
  app.ChooseFile(cards);
  app.ExpectRemark(u"1个联系人，1个号码");

  // No program opens a sheet here: the table becomes a new document.
  app.Menu("mnuAndroidPhoneBookEncode");
  app.ChooseFile(cards);
  app.ChooseFile(sheet);
  app.ExpectText(
      u"姓名\t手机\t住宅电话\t单位电话\t传真\t邮箱\t地址\t单位\t职务\t生日\t网址\t备注\t其他\r\n"
      u"张三\t0013800138000\t\t\t\t\t\t\t\t\t\t\t\r\n");
  app.ExpectRemark(u"1个联系人，1个号码");
  NoProgress progress;
  EXPECT_EQ(ReadFirstSheet(ReadBytes(sheet), progress).rows.at(1).cells,
            (std::vector<std::string>{"\xE5\xBC\xA0\xE4\xB8\x89", "0013800138000"}));
  const std::string written = ReadBytes(cards);

  // No spreadsheet program is running: a file is asked for, and the one that is there is kept when the user says so.
  app.Menu("mnuExcelPhoneBookToAndroid");
  app.ChooseFile(sheet);
  app.ChooseFile(cards);
  app.ExpectBox({.text = u"文件“" + cards.u16string() + u"”已经存在，要替换它吗？",
                 .buttons = Buttons::kYesNo,
                 .icon = Icon::kQuestion,
                 .defaultAnswer = Answer::kNo})
      .Answer(Answer::kNo);
  app.Settle();
  EXPECT_EQ(ReadBytes(cards), written);
}

}  // namespace
}  // namespace scrivanta
