#include <gtest/gtest.h>

#include "lines/TextStatistics.h"
#include "lines/WordFilter.h"

namespace scrivanta::testing {
namespace {

struct Groups {
  std::u16string have;
  std::u16string haveNot;
};

Groups Filtered(std::string_view lines, const WordFilterOptions& options) {
  MemorySource source(lines);
  NoProgress progress;
  LineReader reader(source, LineEnds::kCrLf, progress);
  StringSink have;
  StringSink haveNot;
  LineWriter haveWriter(have);
  LineWriter haveNotWriter(haveNot);
  WordFilter(reader, haveWriter, haveNotWriter, options);
  haveWriter.Flush();
  haveNotWriter.Flush();
  return {Decode(options.encoding, have.bytes()), Decode(options.encoding, haveNot.bytes())};
}

TEST(WordFilter, WritesHeadersAndGroups) {
  const Groups groups = Filtered("xab\r\nAB\r\n\r\nab\r\n", {u"ab"});
  EXPECT_EQ(groups.have, u"以下行 含有 关键字：ab\r\nxab\r\nab\r\n");
  EXPECT_EQ(groups.haveNot, u"\r\n========================\r\n以下行 不含有 关键字：ab\r\nAB\r\n\r\n");
  EXPECT_EQ(Filtered("", {u"一", Encoding::kUtf8}).haveNot,
            u"\r\n========================\r\n以下行 不含有 关键字：一\r\n");
}

// Which lines have the keyword, character by character, though their bytes may look like it.
TEST(WordFilter, FindsCharacters) {
  struct Case {
    std::u16string keyword;
    std::string line;
    bool has;
  };
  const Case cases[] = {
      {u"a.b", "xa.by", true},
      {u"a.b", "xaxby", false},
      {u"啊", "\xB0\xA1", true},                   // the character itself
      {u"啊", "\xA1\xB0\xA1\xA1", false},          // the halves of two others
      {u"啊", "\xA1\xB0\xA1\xA1 \xB0\xA1", true},  // both
      {u"@", "\x81\x40", false},                   // second byte
      {u"@", "\x81\x40@", true},
      {u"0", "\x81\x39\xEE\x39\x81\x30\x81\x30", false},  // inside four bytes
      {u"\u3400", "\x81\x39\xEE\x39", true},
      {std::u16string(u"\0b", 2), std::string("a\0b", 3), true},
      {u"b", "a\rb\n", true},
  };
  for (const Case& c : cases) {
    const std::u16string line = Decode(Encoding::kGbk, c.line) + u"\r\n";
    EXPECT_EQ(Filtered(c.line, {c.keyword}).have,
              u"以下行 含有 关键字：" + c.keyword + u"\r\n" + (c.has ? line : std::u16string()));
  }
}

TEST(TextStatistics, CountsCharactersAndHardLines) {
  struct Case {
    std::u16string text;
    std::uint64_t characters;
    std::uint64_t hardLines;
  };
  const Case cases[] = {{u"", 0, 0},           {u"ab\r\nc", 5, 2}, {u"\r\n", 2, 1},   {u"一\r\n\r\n", 5, 2},
                        {u"\U00020000", 2, 1}, {u"a\rb", 3, 1},    {u"a\r\n\n", 4, 2}};
  for (const Case& c : cases) {
    const std::string bytes = Encode(Encoding::kGbk, c.text);
    MemorySource source(bytes);
    NoProgress progress;
    const TextStatistics counted = CountText(source, LineEnds::kCrLf, Encoding::kGbk, progress);
    EXPECT_EQ(counted.characters, c.characters) << bytes;
    EXPECT_EQ(counted.hardLines, c.hardLines) << bytes;
  }
  NoProgress progress;
  MemorySource source("a\nb\n");
  EXPECT_EQ(CountText(source, LineEnds::kCrLfOrLf, Encoding::kGbk, progress).characters, 6U);
}

}  // namespace
}  // namespace scrivanta::testing
