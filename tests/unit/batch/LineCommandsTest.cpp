#include <gtest/gtest.h>

#include "support/BatchRun.h"

namespace scrivanta::testing {
namespace {

TEST(LineCommands, CleanUpLines) {
  struct Case {
    std::vector<std::string> arguments;
    std::string input;
    std::string output;
  };
  const std::string withNul("a\0 \n\n \0", 7);
  const Case cases[] = {
      {{"del-empty-lines"}, "", ""},
      {{"del-empty-lines"}, "\r\n", ""},
      {{"del-empty-lines"}, "a\r\n\r\n \n\t\n\nb", "a\r\n \r\n\t\r\nb\r\n"},
      {{"del-empty-lines"}, "\r\r\na", "\r\r\na\r\n"},
      {{"del-empty-lines"}, withNul, std::string("a\0 \r\n \0\r\n", 9)},
      {{"trim-lines"}, "  a b \r\n\t c\t \n\n   \n d", "a b\r\n\t c\t\r\n\r\n\r\nd\r\n"},
      {{"trim-lines"}, " \xA1\xA1 \n", "\xA1\xA1\r\n"},
      {{"del-lines", "--from", "2", "--to", "3"}, "a\nb\nc\nd", "a\r\nd\r\n"},
      {{"del-lines", "--from", "3", "--to", "2"}, "a\nb\nc\nd", "a\r\nb\r\nc\r\nd\r\n"},
      {{"del-lines", "--from", "0", "--to", "9"}, "a\nb\n", ""},
      {{"add-tabs"}, "a\tb\t\nc\n\n", "a\tb\t\r\nc\t\t\r\n\t\t\r\n"},
      {{"add-tabs"}, "a\nb", "a\r\nb\r\n"},
      {{"add-tabs"}, "", ""},
  };
  for (const Case& c : cases) {
    const BatchResult result = RunBatchOn(c.input, c.arguments);
    EXPECT_EQ(result.status, 0) << result.errors;
    EXPECT_EQ(result.output, c.output) << c.arguments[0] << " of " << c.input;
  }
}

TEST(LineCommands, TakeAVeryLongLine) {
  const std::string line(10'000'000, 'x');
  EXPECT_TRUE(RunBatchOn("\n \t" + line + "\n", {"trim-lines"}).output == "\r\n\t" + line + "\r\n");
  EXPECT_TRUE(RunBatchOn("\n\t" + line, {"add-tabs"}).output == "\t\r\n\t" + line + "\r\n");
}

}  // namespace
}  // namespace scrivanta::testing
