// What every database must do alike: files of SQLite through the library and through a driver, and a real server.
#include <algorithm>
#include <csignal>

#include <gtest/gtest.h>
#include <sys/wait.h>

#include "PostgresServer.h"
#include "database/DatabaseError.h"
#include "database/DatabaseSource.h"
#include "database/OdbcDatabase.h"
#include "database/PipeDatabase.h"
#include "database/RecordSource.h"
#include "database/RewindableMemory.h"
#include "database/TableExport.h"

namespace scrivanta::testing {
namespace {

const RecordFormat kCsv{.separation = Separation::kComma, .encoding = Encoding::kUtf8};

std::uint64_t Import(Database& database, const std::string& csv, ImportOptions options, Progress& progress) {
  RewindableMemory bytes(csv);
  options.header = true;
  RecordSource source(
      bytes, [&bytes] { bytes.Rewind(); }, kCsv, progress);
  return ImportRows(database, source, options, progress);
}

std::uint64_t Import(Database& database, const std::string& csv, const ImportOptions& options) {
  NoProgress progress;
  return Import(database, csv, options, progress);
}

std::string Export(Database& database, std::u16string_view table, std::u16string_view nullText = {}) {
  NoProgress progress;
  StringSink sink;
  LineWriter out(sink);
  const auto rows = database.ReadTable(table, progress);
  ExportRows(*rows, out, {.format = kCsv, .header = true, .nullText = std::u16string(nullText)}, progress);
  out.Flush();
  return sink.bytes();
}

// Throws when it has been asked so many times.
class StoppingProgress final : public Progress {
 public:
  explicit StoppingProgress(
      int after, std::function<void()> stop = [] { throw Interrupted(); })
      : left_(after), stop_(std::move(stop)) {}
  void Report(std::uint64_t, std::uint64_t) override {
    if (--left_ < 0) {
      stop_();
    }
  }

 private:
  int left_;
  std::function<void()> stop_;
};

void RoundTrip(Database& database) {
  const std::string kText =
      "编号,姓名,数,小数,价,日期,时刻,长数,备注\r\n"
      "1,𠮷野〇😀,0.1,0.25,1.50,1850-02-28,1899-12-30 23:59:59,123456789012345678901234567890,\"a\"\"b\"\"\"\r\n"
      "-9223372036854775,\"行一\r\n行二\",100000,-3,20.00,0001-01-01,9999-12-31 00:00:00,"
      "-98765432109876543210987654321," +
      std::string(1024 * 1024, 'x') + "\r\n" + ",,,,,,,,\r\n";
  EXPECT_EQ(Import(database, kText, {.table = u"往来 \"表\""}), 3U);
  EXPECT_EQ(Export(database, u"往来 \"表\""), kText);

  NoProgress progress;
  EXPECT_EQ(database.CountRows(u"往来 \"表\"", progress), 3U);
  const std::vector<std::u16string> tables = database.Tables(progress);
  EXPECT_NE(std::ranges::find(tables, u"往来 \"表\""), tables.end());

  // More rows than a block, by name, in another order, twice, and then in place of all.
  std::string more = "姓名,编号\r\n";
  for (int i = 0; i < 2000; ++i) {
    more += "名" + std::to_string(i) + "," + std::to_string(i) + "\r\n";
  }
  EXPECT_EQ(Import(database, more, {.table = u"往来 \"表\""}), 2000U);
  EXPECT_EQ(database.CountRows(u"往来 \"表\"", progress), 2003U);
  EXPECT_EQ(Import(database, more, {.table = u"往来 \"表\"", .replace = true}), 2000U);
  EXPECT_EQ(database.CountRows(u"往来 \"表\"", progress), 2000U);

  // NULL and the empty text.
  Import(database, "a,b\r\n-,\r\nx,-\r\nNULL,{y\\z}\r\n", {.table = u"空", .nullText = u"-"});
  EXPECT_EQ(Export(database, u"空", u"<N>"), "a,b\r\n<N>,\r\nx,<N>\r\nNULL,{y\\z}\r\n");

  Import(database, "b\r\n0x00FF41\r\n", {.table = u"bin", .types = {{ColumnKind::kBinary}}});
  EXPECT_EQ(Export(database, u"bin"), "b\r\n0x00FF41\r\n");
}

// Nothing of these stays: neither in a table that is there nor a table that was made for them.
void RefusesBadRows(Database& database) {
  NoProgress progress;
  database.Query(u"CREATE TABLE held (id INTEGER NOT NULL PRIMARY KEY, name VARCHAR(20) NOT NULL)", progress);
  Import(database, "id,name\r\n1,one\r\n", {.table = u"held"});
  const std::string before = Export(database, u"held");
  std::string many = "id,name\r\n";
  for (int i = 2; i < 1500; ++i) {
    many += std::to_string(i) + ",n\r\n";
  }
  struct Case {
    std::string csv;
    std::uint64_t line;
    std::size_t column;  // 0: whatever the database names
  };
  const Case cases[] = {
      {"id,name\r\n2,two\r\nx,three\r\n", 3, 1}, {"name,id\r\n\"two\r\nlines\",2\r\nthree,3.5\r\n", 4, 2},
      {"id,name\r\n2,two\r\n3\r\n", 3, 2},       {"id,name\r\n2,two,zwei\r\n", 2, 0},
      {many + "77,again\r\n", 1500, 0},          {"id,name\r\n2,two\r\n1,one\r\n", 3, 0},
  };
  for (const Case& c : cases) {
    for (const bool replace : {false, true}) {
      if (replace && c.line == 3 && c.column == 0) {
        continue;  // number 1 may come again when the old row goes
      }
      try {
        Import(database, c.csv, {.table = u"held", .replace = replace});
        ADD_FAILURE() << c.csv.substr(0, 40);
      } catch (const BadRow& refusal) {
        EXPECT_EQ(refusal.line(), c.line) << refusal.what();
        if (c.column > 0) {
          EXPECT_EQ(refusal.column(), c.column) << refusal.what();
        }
      }
      EXPECT_EQ(Export(database, u"held"), before);
    }
  }
  EXPECT_THROW(Import(database, "id,nome\r\n2,two\r\n", {.table = u"held"}), DatabaseError);
  EXPECT_THROW(Import(database, "a,A\r\n1,2\r\n", {.table = u"fresh"}), DatabaseError);
  EXPECT_THROW(Import(database, "a,b\r\n1,2\r\n1\r\n", {.table = u"fresh"}), BadRow);
  EXPECT_TRUE(database.Columns(u"fresh").empty());
  for (const int reports : {0, 2, 5}) {
    StoppingProgress stopping(reports);
    EXPECT_THROW(Import(database, many, {.table = u"held"}, stopping), Interrupted);
    StoppingProgress stoppingAgain(reports);
    EXPECT_THROW(Import(database, many, {.table = u"fresh"}, stoppingAgain), Interrupted);
  }
  EXPECT_EQ(Export(database, u"held"), before);
  EXPECT_TRUE(database.Columns(u"fresh").empty());
}

// A process that is killed in the midst of an import leaves the database as it was.
void SurvivesAKill(const std::function<std::unique_ptr<Database>()>& connect) {
  const pid_t child = fork();
  if (child == 0) {
    StoppingProgress killing(12, [] { std::raise(SIGKILL); });
    const auto database = connect();
    std::string many = "id,name\r\n";
    for (int i = 2; i < 60000; ++i) {
      many += std::to_string(i) + ",n\r\n";
    }
    Import(*database, many, {.table = u"held", .replace = true}, killing);
    _exit(0);
  }
  int status = 0;
  waitpid(child, &status, 0);
  ASSERT_TRUE(WIFSIGNALED(status));
  EXPECT_EQ(Export(*connect(), u"held"), "id,name\r\n1,one\r\n");
}

void SurvivesAKill(const DatabaseSource& source) {
  SurvivesAKill([&source] { return ConnectTo(source, MissingFile::kMade); });
}

TEST(Exchange, SqliteThroughItsLibrary) {
  const TemporaryFolder folder;
  const DatabaseSource source{.file = (folder.path() / "库😀.db").u16string()};
  {
    const auto database = ConnectTo(source, MissingFile::kMade);
    RoundTrip(*database);
    RefusesBadRows(*database);
  }
  SurvivesAKill(source);
  NoProgress progress;
  const auto database = ConnectTo(source, MissingFile::kRefused);
  EXPECT_THROW(database->Query(u"SELECT 1; SELECT 2", progress), DatabaseError);
  EXPECT_THROW(database->Query(u"", progress), DatabaseError);
  StoppingProgress stopping(0);
  EXPECT_THROW(
      database->Query(u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n) SELECT SUM(i) FROM n", stopping)
          ->Next(*std::make_unique<DatabaseRow>()),
      Interrupted);
}

TEST(Exchange, AFileOfSqliteIsLeftAloneOrWhole) {
  const TemporaryFolder folder;
  const std::filesystem::path fresh = folder.path() / "fresh.db";
  EXPECT_THROW(SqliteDatabase(fresh, MissingFile::kRefused), DatabaseError);
  EXPECT_FALSE(std::filesystem::exists(fresh));
  {
    SqliteDatabase database(fresh, MissingFile::kMade);
    EXPECT_THROW(Import(database, "a,b\r\n1\r\n", {.table = u"t"}), BadRow);
  }
  EXPECT_FALSE(std::filesystem::exists(fresh));
  const std::filesystem::path noDatabase = folder.Put("no.db", std::string(4096, 'n'));
  EXPECT_THROW(SqliteDatabase(noDatabase, MissingFile::kMade), DatabaseError);
  EXPECT_EQ(std::filesystem::file_size(noDatabase), 4096U);
  EXPECT_THROW(ConnectTo({.file = (folder.path() / "no.accdb").u16string()}, MissingFile::kMade), DatabaseError);
}

TEST(Exchange, SqliteThroughItsDriver) {
  const TemporaryFolder folder;
  const DatabaseSource source{.file = {},
                              .connection = u"DRIVER=SQLite3;Database=" + (folder.path() / "a.db").u16string()};
  {
    const auto database = ConnectTo(source, MissingFile::kRefused);
    RoundTrip(*database);
    RefusesBadRows(*database);
  }
  SurvivesAKill(source);
}

// The companion of this width stands in for the one of the other: the same source, the same pipe.
TEST(Exchange, SqliteThroughItsDriverAndTheCompanion) {
  const TemporaryFolder folder;
  const std::u16string connection = u"DRIVER=SQLite3;Database=" + (folder.path() / "a.db").u16string();
  const auto connect = [&connection] {
    auto database = std::make_unique<PipeDatabase>(CompanionProgram());
    database->Open(connection);
    return database;
  };
  {
    const auto database = connect();
    EXPECT_EQ(database->Drivers(), OdbcDrivers());
    RoundTrip(*database);
    RefusesBadRows(*database);
    EXPECT_THROW(database->MakeJetFile(u"none", folder.path() / "a.mdb"), DatabaseError);
    EXPECT_THROW(database->Open(u"DRIVER=None"), DatabaseError);
  }
  SurvivesAKill(connect);

  const auto database = connect();
  {
    StoppingProgress stopping(2);
    DatabaseRow row;
    const auto rows = database->ReadTable(u"往来 \"表\"", stopping);
    EXPECT_THROW(while (rows->Next(row)){}, Interrupted);
  }

  // The companion itself is killed.
  StoppingProgress killing(3, [] {
    const std::string children = "pkill -KILL -P " + std::to_string(getpid()) + " scrivanta-comp";
    ASSERT_EQ(std::system(children.c_str()), 0);
  });
  std::string many = "id,name\r\n";
  for (int i = 2; i < 60000; ++i) {
    many += std::to_string(i) + ",n\r\n";
  }
  EXPECT_THROW(Import(*database, many, {.table = u"held", .replace = true}, killing), std::runtime_error);
  EXPECT_THROW(database->Tables(*std::make_unique<NoProgress>()), std::runtime_error);
  EXPECT_EQ(Export(*connect(), u"held"), "id,name\r\n1,one\r\n");
}

// One test, since the server takes a while to start.
TEST(Exchange, PostgreSql) {
  const PostgresServer server;
  const DatabaseSource source{.file = {}, .connection = server.ConnectionString()};
  {
    const auto database = ConnectTo(source, MissingFile::kRefused);
    RoundTrip(*database);
    RefusesBadRows(*database);
    NoProgress progress;
    database->Query(u"CREATE SCHEMA 账", progress);
    database->Query(u"CREATE TABLE 账.t (b BOOLEAN, x REAL, d DOUBLE PRECISION, n NUMERIC(40, 10))", progress);
    database->Query(u"INSERT INTO 账.t VALUES (true, 0.1, 1e300, 123456789012345678901234567890.0123456789)", progress);
    EXPECT_EQ(Export(*database, u"账.t"), "b,x,d,n\r\n1,0.1,1e+300,123456789012345678901234567890.0123456789\r\n");
    EXPECT_THROW(database->Query(u"SELECT nothing FROM nowhere", progress), DatabaseError);
  }
  SurvivesAKill(source);
  EXPECT_THROW(OdbcDatabase(u"DRIVER=None;Server=127.0.0.1"), DatabaseError);
}

}  // namespace
}  // namespace scrivanta::testing
