#include <algorithm>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "support/BatchRun.h"

namespace scrivanta::testing {
namespace {

struct Case {
  std::vector<std::string> arguments;
  std::string input;
  std::string output;
  int status = 0;
};

void Check(const std::vector<Case>& cases) {
  for (const Case& c : cases) {
    SCOPED_TRACE(::testing::PrintToString(c.arguments));
    const BatchResult result = RunBatchOn(c.input, c.arguments);
    EXPECT_EQ(result.status, c.status) << result.errors;
    EXPECT_EQ(result.output, c.output);
  }
}

TEST(RegExpCommands, ExecuteListsMatchesAsJson) {
  Check({
      {{"regexp-execute", "--pattern", "(\\d)|(x)", "--encoding", "utf-8", "--global"},
       "中1\r\nx",
       "{\"firstIndex\":1,\"length\":1,\"value\":\"1\",\"groups\":[\"1\",null]}\n"
       "{\"firstIndex\":4,\"length\":1,\"value\":\"x\",\"groups\":[null,\"x\"]}\n"},
      {{"regexp-execute", "--pattern", "[\\s\\S]", "--encoding", "utf-8"},
       "\n\"",
       "{\"firstIndex\":0,\"length\":1,\"value\":\"\\n\",\"groups\":[]}\n"},
      {{"regexp-execute", "--pattern", "[\xE4\xB8\xAD]"},
       "\xD6\xD0",
       "{\"firstIndex\":0,\"length\":1,\"value\":\"\xE4\xB8\xAD\",\"groups\":[]}\n"},
      {{"regexp-execute", "--pattern", "^B$", "--multi-line", "--ignore-case"},
       "a\rb\nB",
       "{\"firstIndex\":2,\"length\":1,\"value\":\"b\",\"groups\":[]}\n"},
      // Halves of a pair and bytes that are no text.
      {{"regexp-execute", "--pattern", ".+?", "--encoding", "utf-8", "--global"},
       "\xF0\x9F\x98\x80\xFF",
       "{\"firstIndex\":0,\"length\":1,\"value\":\"\\ud83d\",\"groups\":[]}\n"
       "{\"firstIndex\":1,\"length\":1,\"value\":\"\\ude00\",\"groups\":[]}\n"
       "{\"firstIndex\":2,\"length\":1,\"value\":\"\\udcff\",\"groups\":[]}\n"},
      {{"regexp-execute", "--pattern", "..", "--encoding", "utf-8"},
       "\xF0\x9F\x98\x80",
       "{\"firstIndex\":0,\"length\":2,\"value\":\"\xF0\x9F\x98\x80\",\"groups\":[]}\n"},
      {{"regexp-execute", "--pattern", "x"}, "abc", "", 1},
      {{"regexp-execute", "--pattern", "\\d", "--replacement", "<$&>"}, "a1b2\n", "a<$&>b2\n"},
      {{"regexp-execute", "--pattern", "\\d", "--replacement", "", "--global"}, "a1b2", "ab"},
      {{"regexp-execute", "--pattern", "x", "--replacement", "y"}, "abc", "abc", 1},
      {{"regexp-execute", "--pattern", "a", "--replacement", "[*VBNullString*]"},
       "a",
       "{\"firstIndex\":0,\"length\":1,\"value\":\"a\",\"groups\":[]}\n"},
  });
  EXPECT_TRUE(nlohmann::json::accept(RunBatchOn("\x01\"\\/\x7F", {"regexp-execute", "--pattern", ".+"}).output));
}

TEST(RegExpCommands, Extract) {
  Check({
      {{"regexp-extract", "--pattern", "^.*"}, "ab\r\n\ncd", "ab\r\ncd"},
      {{"regexp-extract", "--pattern", "k(\\d)=(\\w)", "--groups", "2\\1", "--separator", ", "},
       "k1=a k2=b",
       "a, 1\r\nb, 2"},
      {{"regexp-extract", "--pattern", "\\((.*)\\)", "--groups", "1", "--repeat"}, "a(b(c)d)", "c"},
      {{"regexp-extract", "--pattern", "A", "--ignore-case"}, "xa", "a"},
      {{"regexp-extract", "--pattern", "A"}, "xa", "", 1},
      {{"regexp-extract", "--pattern", "^"}, "xa", "", 1},
  });
}

// Longer than what is read at once, so that a pattern which stays in its line sees the text in pieces.
TEST(RegExpCommands, FindsTheSameInALongText) {
  std::string text;
  for (int i = 0; i < 40'000; ++i) {
    text += i % 3 == 0 ? "\xD6\xD0 ab\n" : i % 3 == 1 ? "b\r\n" : "\r\n";
  }
  const auto output = [&text](const std::vector<std::string>& arguments) { return RunBatchOn(text, arguments).output; };
  const std::string lines = output({"regexp-extract", "--pattern", "^.*?$"});
  EXPECT_EQ(lines, output({"regexp-extract", "--pattern", "^.*?$|\\n{9}"}));
  EXPECT_EQ(std::count(lines.begin(), lines.end(), 'b'), 26'667);
  const std::string replaced = output({"regexp-replace", "--pattern", "$|^b?", "--replacement", "<$&>"});
  EXPECT_EQ(replaced, output({"regexp-replace", "--pattern", "$|^b?|\\n{9}", "--replacement", "<$&>"}));
  EXPECT_EQ(std::count(replaced.begin(), replaced.end(), '\n'), 40'000);
  EXPECT_EQ(output({"regexp-replace", "--pattern", "^b", "--replacement", "c", "--first-only"}),
            output({"regexp-replace", "--pattern", "^b|\\n{9}", "--replacement", "c", "--first-only"}));
}

TEST(RegExpCommands, Replace) {
  Check({
      {{"regexp-replace", "--pattern", "^(\\w)", "--replacement", "\\1."}, "a\r\nb\r\n", "a.\r\nb.\r\n"},
      {{"regexp-replace", "--pattern", "^a", "--replacement", "-", "--single-line"}, "a\r\na", "-\r\na"},
      {{"regexp-replace", "--pattern", "A", "--replacement", "", "--ignore-case", "--first-only"}, "aa", "a"},
      {{"regexp-replace", "--pattern", "x", "--replacement", "y"}, "a\nb", "a\r\nb"},
      {{"regexp-replace", "--pattern", "", "--replacement", "y"}, "a\nb", "a\nb"},
      {{"regexp-replace", "--pattern", "a", "--replacement", "b"}, "a\xFF\x81\n\xFF", "b\xFF\x81\r\n\xFF"},
  });
}

TEST(RegExpCommands, MultiReplace) {
  Check({
      {{"multi-replace", "--find", "a|b", "--replace", "x|y"}, "a.b\n", "x.y\n"},
      {{"multi-replace", "--find", "a|b", "--replace", "b|a"}, "ab", "aa"},
      {{"multi-replace", "--find", "A", "--replace", "aa", "--ignore-case"}, "aA", "aaaa"},
      {{"multi-replace", "--find", "|b", "--replace", "x|"}, "abc", "ac"},
  });
}

TEST(RegExpCommands, RefuseWhatCannotBeUsed) {
  const BatchResult pattern = RunBatchOn("abc", {"regexp-extract", "--pattern", "a(b"});
  EXPECT_EQ(pattern.status, 2);
  EXPECT_EQ(pattern.errors,
            "scrivanta-batch: the pattern cannot be used: character 2: this ( has no ) that closes it\n");
  const BatchResult lists = RunBatchOn("abc", {"multi-replace", "--find", "a|b", "--replace", "x"});
  EXPECT_EQ(lists.status, 2);
  EXPECT_EQ(lists.output, "");
  const BatchResult runaway = RunBatchOn(std::string(40, 'a'), {"regexp-execute", "--pattern", "(a+)+[bc]"});
  EXPECT_EQ(runaway.status, 3);
  EXPECT_EQ(runaway.errors,
            "scrivanta-batch: the pattern is too complex for this text: the search was given up at character 1\n");
}

}  // namespace
}  // namespace scrivanta::testing
