#include <cstdlib>

#include <gtest/gtest.h>

#include "support/BatchRun.h"
#include "support/TemporaryFolder.h"

namespace scrivanta::testing {
namespace {

class DatabaseCommands : public ::testing::Test {
 protected:
  BatchResult Run(const std::string& input, std::vector<std::string> arguments, bool interrupted = false) const {
    arguments.insert(arguments.begin() + 1, {"--encoding", "utf-8", "--database", file_});
    return RunBatchOn(input, arguments, interrupted);
  }
  bool HasFile() const { return std::filesystem::exists(file_); }

  TemporaryFolder folder_;
  std::string file_ = (folder_.path() / "a.db").string();
};

TEST_F(DatabaseCommands, FromRecordsToRecords) {
  struct Case {
    std::vector<std::string> arguments;
    std::string input;
    int status;
    std::string output;
  };
  const std::vector<std::string> import = {"db-import", "--table", "书", "--delimiter", "comma", "--header"};
  std::vector<std::string> replace = import;
  replace.insert(replace.end(), {"--replace", "--null", "-"});
  const Case cases[] = {
      {import, "书名,价\n\"史,记\",1\n\n\"a\"\"b\nc\",2.5\n", 0, "imported 2 rows\r\n"},
      {{"db-tables"}, "", 0, "书\t2\r\n"},
      {{"db-export", "--table", "书", "--delimiter", "comma", "--header"},
       "",
       0,
       "书名,价\r\n\"史,记\",1\r\n\"a\"\"b\nc\",2.5\r\n"},
      {{"db-query", "--query", "SELECT SUM(价), NULL FROM 书", "--null", "-"}, "", 0, "3.5\t-\r\n"},
      {import, "价\r\n7\r\n", 0, "imported 1 rows\r\n"},
      {import, "价\r\nx\r\n", 3, ""},
      {replace, "价,书名\r\n-,\r\n", 0, "imported 1 rows\r\n"},
      {{"db-export", "--query", "SELECT 书名, 价 FROM 书", "--null", "<>"}, "", 0, "\t<>\r\n"},
      {{"db-query", "--query", "DELETE FROM 书"}, "", 0, ""},
      {{"db-tables"}, "", 0, "书\t0\r\n"},
      {{"db-import", "--table", "t"}, "1\tb\n02\t\n", 0, "imported 2 rows\r\n"},
      {{"db-export", "--table", "t", "--header"}, "", 0, "column1\tcolumn2\r\n1\tb\r\n02\t\r\n"},
      {{"db-query", "--query", "SELECT 'a' || char(9) || 'b'"}, "", 3, ""},
      {{"db-query", "--query", "SELECT"}, "", 3, ""},
      {{"db-export"}, "", 2, ""},
      {{"db-export", "--table", "t", "--query", "SELECT 1"}, "", 2, ""},
      {{"db-import", "--table", "u", "--types", "text,word"}, "1\t2\n", 2, ""},
      {{"db-import", "--table", "u", "--types", "text"}, "1\t2\n", 3, ""},
      {{"db-import", "--table", "u"}, "", 3, ""},
  };
  for (const Case& c : cases) {
    const BatchResult result = Run(c.input, c.arguments);
    EXPECT_EQ(result.status, c.status) << c.arguments.back() << ": " << result.errors;
    EXPECT_EQ(result.output, c.output) << c.arguments.back();
  }
}

TEST_F(DatabaseCommands, ABadRowIsNamedAndNoFileIsMade) {
  const BatchResult bad = Run("a\tb\n1\t2\n3\n", {"db-import", "--table", "t", "--header"});
  EXPECT_EQ(bad.status, 3);
  EXPECT_EQ(bad.errors,
            "scrivanta-batch: line 3, column 2 (b): there are 1 fields, not 2; nothing has been imported\n");
  EXPECT_EQ(Run("a\n1\n", {"db-import", "--table", "t"}, true).status, 3);
  EXPECT_EQ(Run("", {"db-tables"}).status, 3);
  EXPECT_FALSE(HasFile());
}

TEST_F(DatabaseCommands, AConnectionFromTheEnvironment) {
  const std::vector<std::string> tables = {"db-tables", "--connection-from-env", "SCRIVANTA_TEST_CONNECTION"};
  EXPECT_EQ(RunBatchOn("", tables).status, 2);
  EXPECT_EQ(RunBatchOn("", {"db-tables"}).status, 2);
  setenv("SCRIVANTA_TEST_CONNECTION", ("DRIVER=SQLite3;Database=" + file_).c_str(), 1);
  EXPECT_EQ(RunBatchOn("a\tb\n1\t2\n",
                       {"db-import", "--connection-from-env", "SCRIVANTA_TEST_CONNECTION", "--table", "t", "--header"})
                .output,
            "imported 1 rows\r\n");
  EXPECT_EQ(RunBatchOn("", tables).output, "t\t1\r\n");
}

}  // namespace
}  // namespace scrivanta::testing
