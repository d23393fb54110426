#include <algorithm>

#include <gtest/gtest.h>

#include "support/BatchRun.h"
#include "support/TemporaryFolder.h"
#include "text/Encoding.h"

namespace scrivanta::testing {
namespace {

TEST(LineCommands, CleanUpLines) {
  struct Case {
    std::vector<std::string> arguments;
    std::string input;
    std::string output;
  };
  const std::string withNul("a\0 \n\n \0", 7);
  const std::string gaps = "\r\n\r\n\r\n\r\n\r\n\r\n以下为重复de文字行：\r\n";
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
      {{"sort"}, "c\na\nb", "a\r\nb\r\nc\r\n"},
      {{"sort", "--order", "down", "--by", "number"}, "a2\nb10\n", "b10\r\na2\r\n"},
      {{"sort", "--by", "pinyin"}, "\xD2\xD2\n\xBC\xD7\nz", "z\r\n\xBC\xD7\r\n\xD2\xD2\r\n"},
      {{"sort", "--by", "strokes"}, "\xBC\xD7\n\xD2\xD2", "\xD2\xD2\r\n\xBC\xD7\r\n"},
      {{"pinyin-initials"}, "\xBC\xD7", "J \xBC\xD7\r\n"},
      {{"pinyin-initials", "--place", "column", "--first", "--small"}, "\xBC\xD7\xD2\xD2", "\xBC\xD7\xD2\xD2\tj\r\n"},
      {{"pinyin-initials", "--names", "--place", "only"}, "\xD4\xF8\n", "Z\r\n"},
      {{"sort", "--from", "2", "--to", "99"}, "c\nb\na", "c\r\na\r\nb\r\n"},
      {{"sort", "--from", "0", "--to", "2"}, "c\nb\na", "b\r\nc\r\na\r\n"},
      {{"sort", "--from", "9"}, "", ""},
      {{"shuffle", "--seed", "3"}, "a", "a\r\n"},
      {{"dedupe-consecutive", "--keep", "none", "--encoding", "utf-8"},
       "a\na\nb",
       "b\r\n以下为重复de文字行：\r\na\r\n"},
      {{"dedupe", "--encoding", "utf-8"}, "a b\nb\nc", "a b\r\nc\r\n" + gaps + "\r\nb\r\n"},
      {{"dedupe", "--keep", "none", "--encoding", "utf-8"}, "ab\nabc\nabc\nx", "x\r\n" + gaps + "\r\nabc\r\n"},
      {{"dedupe", "--key", "file-name", "--encoding", "utf-8"}, "a\\x\nb\\x", "a\\x\r\n" + gaps + "\r\nb\\x\r\n"},
      {{"dedupe", "--key", "regexp", "--pattern", "\\d", "--encoding", "utf-8"},
       "a1\nb1\nb2",
       "a1\r\nb2\r\n" + gaps + "\r\nb1\r\n"},
      {{"statistics"}, "ab\r\nc", "{\"characters\":5,\"hardLines\":2}\n"},
  };
  for (const Case& c : cases) {
    const BatchResult result = RunBatchOn(c.input, c.arguments);
    EXPECT_EQ(result.status, 0) << result.errors;
    EXPECT_EQ(result.output, c.output) << c.arguments[0] << " of " << c.input;
  }
}

TEST(LineCommands, FilterWritesItsGroups) {
  const TemporaryFolder folder;
  const std::string have = (folder.path() / "have.txt").string();
  const std::string haveNot = (folder.path() / "have-not.txt").string();
  const BatchResult result = RunBatchOn(
      "一\n二\n", {"filter", "--encoding", "utf-8", "--keyword", "一", "--have", have, "--have-not", haveNot});
  EXPECT_EQ(result.status, 0) << result.errors;
  const std::string haveGroup = "以下行 含有 关键字：一\r\n一\r\n";
  const std::string haveNotGroup = "\r\n" + std::string(24, '=') + "\r\n以下行 不含有 关键字：一\r\n二\r\n";
  EXPECT_EQ(result.output, haveGroup + haveNotGroup);
  EXPECT_EQ(ReadWholeFile(have), haveGroup);
  EXPECT_EQ(ReadWholeFile(haveNot), haveNotGroup);
}

TEST(LineCommands, RefuseArgumentsThatDoNotGoTogether) {
  EXPECT_EQ(RunBatchOn("", {"filter", "--keyword", ""}).status, 2);
  EXPECT_EQ(RunBatchOn("", {"dedupe", "--pattern", "a"}).status, 2);
  EXPECT_EQ(RunBatchOn("", {"dedupe", "--key", "regexp"}).status, 2);
  EXPECT_EQ(RunBatchOn("", {"dedupe", "--keep", "last"}).status, 2);
  EXPECT_EQ(RunBatchOn("a", {"filter", "--regexp", "--keyword", "("}).status, 2);
}

std::vector<std::string> LinesOf(std::string_view text) {
  std::vector<std::string> lines;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    lines.emplace_back(text.substr(0, end));
    if (end < text.size() && lines.back().ends_with('\r')) {
      lines.back().pop_back();
    }
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return lines;
}

TEST(LineCommands, NeverLoseALine) {
  const std::string inputs[] = {
      "one line, no end",
      "a\n" + std::string(10'000'000, 'x') + "\na",
      std::string(100'000, '\n'),
      std::string("a\0b\n\0\n\0\0\n\0\n", 11),
      "a\rb\n\r\r\n\r\na\rb\n \r",
      "\xFF\n\x81\x30\x81\x30\n\x94\x39\xDA\x33 5\n\xFF\n\x81\x30\n\x81",  // four bytes a character, none at all
  };
  const std::string repeats = Encode(Encoding::kGbk, u"以下为重复de文字行：");
  struct Case {
    std::vector<std::string> arguments;
    std::vector<std::string> headers;
  };
  const Case cases[] = {
      {{"sort"}, {}},
      {{"sort", "--by", "number", "--order", "down"}, {}},
      {{"shuffle"}, {}},
      {{"filter", "--keyword", "q"},
       {Encode(Encoding::kGbk, u"以下行 含有 关键字：q"), "", std::string(23, '='),
        Encode(Encoding::kGbk, u"以下行 不含有 关键字：q")}},
      {{"dedupe"}, {"", "", "", "", "", "", repeats}},
      {{"dedupe", "--key", "regexp", "--pattern", "[xa]*"}, {"", "", "", "", "", "", repeats}},
      {{"dedupe-consecutive"}, {repeats}},
  };
  for (const std::string& input : inputs) {
    for (const Case& c : cases) {
      const BatchResult result = RunBatchOn(input, c.arguments);
      EXPECT_EQ(result.status, 0) << result.errors;
      std::vector<std::string> lines = LinesOf(result.output);
      std::vector<std::string> expected = LinesOf(input);
      expected.insert(expected.end(), c.headers.begin(), c.headers.end());
      if (c.arguments[0] == "dedupe" && lines.back() != repeats) {
        expected.emplace_back();  // between the header and the first repeat
      }
      std::ranges::sort(lines);
      std::ranges::sort(expected);
      EXPECT_TRUE(lines == expected) << c.arguments[0] << " of " << input.substr(0, 20);
    }
  }
}

TEST(LineCommands, TakeAVeryLongLine) {
  const std::string line(10'000'000, 'x');
  EXPECT_TRUE(RunBatchOn("\n \t" + line + "\n", {"trim-lines"}).output == "\r\n\t" + line + "\r\n");
  EXPECT_TRUE(RunBatchOn("\n\t" + line, {"add-tabs"}).output == "\t\r\n\t" + line + "\r\n");
}

}  // namespace
}  // namespace scrivanta::testing
