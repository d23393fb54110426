// The companion program as a process of this platform: the 64-bit one stands in for the 32-bit one.
#include <gtest/gtest.h>

#include "database/DatabaseError.h"
#include "database/OdbcDatabase.h"
#include "database/PipeDatabase.h"
#include "database/RecordSource.h"
#include "database/RewindableMemory.h"

namespace scrivanta {
namespace {

TEST(Companion, FillsAndReadsATableThroughItsPipe) {
  PipeDatabase database(CompanionProgram().replace_filename(u"scrivanta-companion.exe"));
  EXPECT_EQ(database.Drivers(), OdbcDrivers());
  database.Open(u"DRIVER=SQLite3;Database=:memory:");
  std::string table = "名\t数\n";
  for (int i = 0; i < 20000; ++i) {
    table += "𠮷野" + std::to_string(i) + "\t" + std::to_string(i) + "\n";
  }
  RewindableMemory bytes(table);
  NoProgress progress;
  RecordSource source(
      bytes, [&bytes] { bytes.Rewind(); }, {.encoding = Encoding::kUtf8}, progress);
  EXPECT_EQ(ImportRows(database, source, {.table = u"表", .header = true}, progress), 20000U);
  const auto rows = database.Query(u"SELECT 名, 数 FROM 表 ORDER BY 数 DESC", progress);
  DatabaseRow row;
  ASSERT_TRUE(rows->Next(row));
  EXPECT_EQ(row[0], u"𠮷野19999");
  std::size_t count = 1;
  while (rows->Next(row)) {
    ++count;
  }
  EXPECT_EQ(count, 20000U);
  EXPECT_THROW(database.MakeJetFile(u"Microsoft Access Driver (*.mdb)", u"C:\\新.mdb"), DatabaseError);
}

}  // namespace
}  // namespace scrivanta
