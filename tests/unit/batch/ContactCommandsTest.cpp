#include <gtest/gtest.h>

#include "support/BatchRun.h"

namespace scrivanta::testing {
namespace {

const std::string kCards =
    "BEGIN:VCARD\r\nVERSION:2.1\r\nN;CHARSET=UTF-8;ENCODING=QUOTED-PRINTABLE:=E5=BC=A0=E4=B8=89;;;;\r\n"
    "FN;CHARSET=UTF-8;ENCODING=QUOTED-PRINTABLE:=E5=BC=A0=E4=B8=89\r\nTEL;CELL:0138\r\n"
    "NOTE;ENCODING=QUOTED-PRINTABLE:=61=0D=0A=09=5C\r\nX-QQ:1\r\nEND:VCARD\r\n";

TEST(ContactCommands, EveryFormComesBackAsTheSameCards) {
  for (const char* const form : {"text", "csv", "xlsx"}) {
    for (const char* const encoding : {"gbk", "utf-8"}) {
      const BatchResult table = RunBatchOn(kCards, {"vcard-to-table", "--to", form, "--encoding", encoding});
      EXPECT_EQ(table.status, 0) << table.errors;
      const BatchResult cards = RunBatchOn(table.output, {"table-to-vcard", "--from", form, "--encoding", encoding});
      EXPECT_EQ(cards.status, 0) << cards.errors;
      EXPECT_EQ(cards.output, kCards) << form << ' ' << encoding;
    }
  }
}

TEST(ContactCommands, DuplicatesAreJoinedWhenWanted) {
  const std::string header = "姓名\t手机\t住宅电话\t单位电话\t传真\t邮箱\t地址\t单位\t职务\t生日\t网址\t备注\t其他\r\n";
  const std::string row = "张三\t0138\t\t\t\t\t\t\t\t\t\ta\\n\\t\\\\\tX-QQ:1\r\n";
  const std::vector<std::string> command = {"vcard-to-table", "--encoding", "utf-8"};
  EXPECT_EQ(RunBatchOn(kCards + kCards, command).output, header + row + row);
  EXPECT_EQ(RunBatchOn(kCards + kCards, {"vcard-to-table", "--encoding", "utf-8", "--join-duplicates"}).output,
            header + row);
  EXPECT_EQ(RunBatchOn(header + row + row, {"table-to-vcard", "--encoding", "utf-8", "--join-duplicates"}).output,
            kCards);
}

TEST(ContactCommands, SayWhatIsWrong) {
  EXPECT_EQ(RunBatchOn("", {"vcard-to-table", "--to", "pdf"}).status, 2);
  const BatchResult noCards = RunBatchOn("\r\nhello\r\n", {"vcard-to-table"});
  EXPECT_EQ(noCards.status, 3);
  EXPECT_EQ(noCards.errors, "scrivanta-batch: no card was found: line 2 belongs to none\n");
  EXPECT_EQ(noCards.output, "");
  EXPECT_EQ(RunBatchOn("a\tb\r\n", {"table-to-vcard"}).status, 3);
  EXPECT_EQ(RunBatchOn("no sheet", {"table-to-vcard", "--from", "xlsx"}).status, 3);
  EXPECT_EQ(RunBatchOn("", {"vcard-to-table"}).status, 0);
}

}  // namespace
}  // namespace scrivanta::testing
