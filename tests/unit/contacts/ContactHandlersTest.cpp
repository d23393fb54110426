#include <gtest/gtest.h>

#include "contacts/ContactHandlers.h"
#include "contacts/ContactSheets.h"
#include "support/ScriptedWorkbench.h"

namespace scrivanta::testing {
namespace {

using Paths = std::vector<std::filesystem::path>;

constexpr std::string_view kBook =
    "BEGIN:VCARD\r\nVERSION:2.1\r\nN:Ann;;;;\r\nFN:Ann\r\nTEL;CELL:0138\r\n?\r\nEND:VCARD\r\n"
    "BEGIN:VCARD\r\nVERSION:2.1\r\nN:Ann;;;;\r\nFN:Ann\r\nTEL;CELL:+86 0138\r\nTEL;HOME:2\r\nEND:VCARD\r\n";

class FixedSpreadsheet final : public Spreadsheet {
 public:
  std::optional<Sheet> ActiveSheet() override { return sheet; }

  std::optional<Sheet> sheet;
};

class ContactHandlers : public ::testing::Test {
 protected:
  std::filesystem::path File(const std::string& name, std::string_view bytes) const {
    const std::filesystem::path path = folder_.path() / name;
    FileSink(path).Write(bytes);
    return path;
  }
  std::filesystem::path PathOf(const std::string& name) const { return folder_.path() / name; }

  TemporaryFolder folder_;
  ScriptedWorkbench workbench_;
  FixedSpreadsheet spreadsheet_;
};

TEST_F(ContactHandlers, CardsBecomeASheetThatIsOpened) {
  workbench_.prompts().Will(Paths{File("a.vcf", kBook), File("b.vcf", "BEGIN:VCARD\nFN:Bob\nTEL:3\nEND:VCARD\n")});
  workbench_.prompts().Will(Answer::kNo);
  workbench_.prompts().Will(PathOf("book"));
  mnuAndroidPhoneBookEncode(workbench_);
  EXPECT_EQ(workbench_.prompts().files.at(1).initialName, u"a.xlsx");
  EXPECT_EQ(workbench_.desktop().opened, Paths{PathOf("book.xlsx")});
  NoProgress progress;
  const Sheet sheet = ReadFirstSheet(ReadWholeFile(PathOf("book.xlsx")), progress);
  ASSERT_EQ(sheet.rows.size(), 4U);
  EXPECT_EQ(sheet.rows[3].cells[0], "Bob");
  EXPECT_EQ(workbench_.status, u"3个联系人，4个号码");
  ASSERT_EQ(workbench_.prompts().messages.size(), 2U);
  EXPECT_EQ(workbench_.prompts().messages[0].text,
            u"有1组联系人姓名和号码都相同：\nAnn  0138（2条）\n要把每组合并成一条吗？");
  EXPECT_EQ(workbench_.prompts().messages[1].text,
            u"3个联系人，4个号码。\n有1行没有看懂，名片里的已原样保留在“其他”一栏：\na.vcf：第1张名片，第6行");
  EXPECT_EQ(workbench_.worksAlive, 0);
}

TEST_F(ContactHandlers, WithoutAProgramTheTableComesIntoTheDocument) {
  workbench_.desktop().hasPrograms = false;
  workbench_.prompts().Will(Paths{File("a.vcf", kBook)});
  workbench_.prompts().Will(Answer::kYes);
  workbench_.prompts().Will(PathOf("book.xlsx"));
  mnuAndroidPhoneBookEncode(workbench_);
  EXPECT_EQ(workbench_.editor().Text(),
            u"姓名\t手机\t住宅电话\t单位电话\t传真\t邮箱\t地址\t单位\t职务\t生日\t网址\t备注\t其他\r\n"
            u"Ann\t0138\t2\t\t\t\t\t\t\t\t\t\t#?\r\n");
  EXPECT_EQ(workbench_.document().offers, 1);
  EXPECT_EQ(workbench_.document().saver(workbench_), SaveOutcome::kSaveAsFile);
}

TEST_F(ContactHandlers, TheTableInTheDocumentBecomesCards) {
  workbench_.editor().Open(u"姓名\t手机\r\n张三\t0138\r\n");
  workbench_.prompts().Will(PathOf("out"));
  mnuAndroidPhoneBookDecode(workbench_);
  EXPECT_EQ(ReadWholeFile(PathOf("out.vcf")),
            "BEGIN:VCARD\r\nVERSION:2.1\r\nN;CHARSET=UTF-8;ENCODING=QUOTED-PRINTABLE:=E5=BC=A0=E4=B8=89;;;;\r\n"
            "FN;CHARSET=UTF-8;ENCODING=QUOTED-PRINTABLE:=E5=BC=A0=E4=B8=89\r\nTEL;CELL:0138\r\nEND:VCARD\r\n");
  EXPECT_EQ(workbench_.status, u"1个联系人，1个号码");
  EXPECT_EQ(workbench_.editor().changes, 0);
}

TEST_F(ContactHandlers, AFileThatIsThereIsReplacedOnlyWhenWanted) {
  workbench_.editor().Open(u"姓名,手机\r\nAnn,1\r\nAnn,1");
  for (const Answer answer : {Answer::kNo, Answer::kYes}) {
    const std::filesystem::path path = File("old.vcf", "old");
    workbench_.prompts().Will(Answer::kYes);
    workbench_.prompts().Will(path);
    workbench_.prompts().Will(answer);
    mnuAndroidPhoneBookDecode(workbench_);
    EXPECT_EQ(ReadWholeFile(path), answer == Answer::kNo ? "old"
                                                         : "BEGIN:VCARD\r\nVERSION:2.1\r\nN:Ann;;;;\r\nFN:Ann\r\n"
                                                           "TEL;CELL:1\r\nEND:VCARD\r\n");
  }
}

TEST_F(ContactHandlers, TheOpenSheetComesBeforeAFile) {
  spreadsheet_.sheet = Sheet{"s", {{0, {"姓名", "手机"}}, {1, {"Ann", "1"}}}};
  workbench_.prompts().Will(PathOf("one.vcf"));
  mnuExcelPhoneBookToAndroid(workbench_, spreadsheet_);
  EXPECT_NE(ReadWholeFile(PathOf("one.vcf")).find("FN:Ann"), std::string::npos);
  SheetWriter writer(PathOf("in.xlsx"), {.name = u"s"});
  writer.WriteRow(std::vector<std::string>{"姓名"});
  writer.WriteRow(std::vector<std::string>{"Bob"});
  writer.Close();
  spreadsheet_.sheet.reset();
  workbench_.prompts().Will(PathOf("in.xlsx"));
  workbench_.prompts().Will(PathOf("two.vcf"));
  mnuExcelPhoneBookToAndroid(workbench_, spreadsheet_);
  EXPECT_EQ(workbench_.prompts().files.back().initialName, u"in.vcf");
  EXPECT_NE(ReadWholeFile(PathOf("two.vcf")).find("FN:Bob"), std::string::npos);
}

TEST_F(ContactHandlers, CancelledOrInterruptedTheyLeaveEverything) {
  workbench_.prompts().Will(Paths{});
  mnuAndroidPhoneBookEncode(workbench_);
  workbench_.prompts().Will(Paths{File("a.vcf", kBook)});
  workbench_.prompts().Will(Answer::kCancel);
  mnuAndroidPhoneBookEncode(workbench_);
  workbench_.editor().Open(u"姓名\r\nAnn");
  workbench_.prompts().Will(std::filesystem::path());
  mnuAndroidPhoneBookDecode(workbench_);
  workbench_.prompts().Will(std::filesystem::path());
  mnuExcelPhoneBookToAndroid(workbench_, spreadsheet_);
  workbench_.prompts().Will(PathOf("out.vcf"));
  workbench_.interruptAfter = workbench_.reports + 4;
  EXPECT_THROW(mnuAndroidPhoneBookDecode(workbench_), Interrupted);
  EXPECT_FALSE(std::filesystem::exists(PathOf("out.vcf")));
  workbench_.editor().Open(u"nothing");
  EXPECT_THROW(mnuAndroidPhoneBookDecode(workbench_), ExplainedError);
  workbench_.editor().Open(u"");
  mnuAndroidPhoneBookDecode(workbench_);
  EXPECT_EQ(workbench_.status, u"没有联系人");
}

}  // namespace
}  // namespace scrivanta::testing
