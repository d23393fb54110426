#include <gtest/gtest.h>

#include "regexp/RegExpErrors.h"
#include "tables/RecordReader.h"
#include "tables/RecordWriter.h"

namespace scrivanta {
namespace {

using Rows = std::vector<std::vector<std::string>>;

// Gives the bytes one by one, so that everything lies across the end of a block.
class SlowSource final : public ByteSource {
 public:
  explicit SlowSource(std::string_view bytes) : bytes_(bytes) {}
  std::size_t Read(std::span<char> buffer) override { return bytes_.Read(buffer.first(1)); }

 private:
  MemorySource bytes_;
};

Rows Read(std::string_view bytes, const RecordFormat& format) {
  SlowSource source(bytes);
  NoProgress progress;
  RecordReader reader(source, format, progress);
  Rows rows;
  while (reader.Next()) {
    rows.emplace_back(reader.fields().begin(), reader.fields().end());
  }
  return rows;
}

RecordFormat Text(std::u16string text, Encoding encoding = Encoding::kGbk) {
  return {.separation = Separation::kText, .text = std::move(text), .encoding = encoding};
}

TEST(RecordReader, TakesRecordsApart) {
  const RecordFormat tab{};
  const RecordFormat comma{.separation = Separation::kComma};
  const RecordFormat semicolon{.separation = Separation::kSemicolon};
  const RecordFormat blanks{.separation = Separation::kBlanks};
  const RecordFormat utf8{.separation = Separation::kComma, .encoding = Encoding::kUtf8};
  const RecordFormat pattern{.separation = Separation::kPattern, .text = u"\\d*"};
  const RecordFormat lineEnds{.separation = Separation::kPattern, .text = u"$|,"};
  struct Case {
    std::string bytes;
    RecordFormat format;
    Rows rows;
  };
  const Case cases[] = {
      {"", tab, {}},
      {"\n", tab, {{""}}},
      {"a\tb\r\n\r\n\tc\t", tab, {{"a", "b"}, {""}, {"", "c", ""}}},
      {"a\rb\t\"c\"\n", tab, {{"a\rb", "\"c\""}}},
      {std::string("a\0\tb", 4), tab, {{std::string("a\0", 2), "b"}}},
      {"a,b,\r\n,", comma, {{"a", "b", ""}, {"", ""}}},
      {R"("a,b","",c"d,"e""f")", comma, {{"a,b", "", "c\"d", "e\"f"}}},
      {R"("a"b"c,d "e")", comma, {{"ab\"c", "d \"e\""}}},
      {"\"\"\"\",\"x\",\n", comma, {{"\"", "x", ""}}},
      {"a,\"1\r\n\n2\",b\nc", comma, {{"a", "1\r\n\n2", "b"}, {"c"}}},
      {"\"a\n\"\"\nb\"\n\"c\"", comma, {{"a\n\"\nb"}, {"c"}}},
      {"\xEF\xBB\xBF\"a\",b\n", utf8, {{"a", "b"}}},
      {"\xEF\xBB\xBFx", tab, {{"\xEF\xBB\xBFx"}}},
      {"a;b,c;\"d;e\"", semicolon, {{"a", "b,c", "d;e"}}},
      {"  a \t\xA1\xA1 b \n \n\xB0\xA1\xA1\xA1\xC0", blanks, {{"a", "b"}, {""}, {"\xB0\xA1", "\xC0"}}},
      // The second byte of the first character looks like the delimiter; so do the last of one and the first of the
      // next.
      {"\x81|x|\x81\x30\x81\x30|", Text(u"|"), {{"\x81|x", "\x81\x30\x81\x30", ""}}},
      {"\xB0\xA1\xA3\xAC\xC8\xA3\xAC", Text(u"，"), {{"\xB0\xA1", "\xC8\xA3\xAC"}}},
      {"a::b:::", Text(u"::"), {{"a", "b", ":"}}},
      {"a12b3", pattern, {{"a", "b", ""}}},
      {"a,b\nc", lineEnds, {{"a", "b"}, {"c"}}},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(Read(c.bytes, c.format), c.rows) << c.bytes;
  }
}

TEST(RecordReader, CutsFixedWidthsBetweenCharacters) {
  const RecordFormat gbk{.separation = Separation::kFixedWidths, .widths = {2, 3}};
  RecordFormat characters = gbk;
  characters.unit = WidthUnit::kCharacters;
  RecordFormat cells = gbk;
  cells.unit = WidthUnit::kCells;
  cells.encoding = Encoding::kUtf8;
  RecordFormat open = gbk;
  open.lastTakesRest = true;
  const Rows rows = {{"\xB0\xA1", "b  "}, {"a", ""}, {"", ""}};
  EXPECT_EQ(Read("\xB0\xA1"
                 "b     \r\na\n\n\x1A",
                 gbk),
            rows);
  EXPECT_EQ(Read("\xB0\xA1\xB0\xA1\xB0\xA1", characters), (Rows{{"\xB0\xA1\xB0\xA1", "\xB0\xA1"}}));
  // An accent that combines takes no cell and stays with its letter.
  EXPECT_EQ(Read("ab\xCC\x81\xE4\xB8\xAD"
                 "c",
                 cells),
            (Rows{{"ab\xCC\x81",
                   "\xE4\xB8\xAD"
                   "c"}}));
  EXPECT_EQ(Read("a\xB0\xA1\xB0\xA1"
                 "bc\td\n\x1A",
                 open),
            (Rows{{"a", "\xB0\xA1",
                   "\xB0\xA1"
                   "bc\td"},
                  {"\x1A", "", ""}}));
}

TEST(RecordReader, NamesLineAndColumnOfWhatIsWrong) {
  const RecordFormat comma{.separation = Separation::kComma};
  const RecordFormat fixed{.separation = Separation::kFixedWidths, .widths = {2, 3}};
  struct Case {
    std::string bytes;
    RecordFormat format;
    std::string message;
  };
  const Case cases[] = {
      {"a\n\"1\n2\"\nb,c,\"d\ne\n", comma, "line 4, column 3: the quote is not closed"},
      {"\"", comma, "line 1, column 1: the quote is not closed"},
      {"\"" + std::string(65, 'x') + "\n" + std::string(16 << 20, 'y'), comma,
       "line 1, column 1: the record is longer than 16 MiB; its quote may not be closed"},
      {"ab\na\xB0\xA1", fixed, "line 2, column 1: a character lies across the end of the column"},
      {"abcde \nabcdef", fixed, "line 2, column 3: the line is longer than the widths"},
  };
  for (const Case& c : cases) {
    MemorySource source(c.bytes);
    NoProgress progress;
    RecordReader reader(source, c.format, progress);
    try {
      while (reader.Next()) {
      }
      FAIL() << c.message;
    } catch (const RecordError& error) {
      EXPECT_EQ(error.what(), c.message);
    }
  }
  NoProgress progress;
  MemorySource nothing("");
  EXPECT_THROW(RecordReader(nothing, {.separation = Separation::kPattern, .text = u"("}, progress), RegExpSyntaxError);
}

TEST(RecordReader, TellsRawRecordAndItsLine) {
  const std::string_view bytes = "a,\"b\r\nc\"\r\n\"d\"\n";
  MemorySource source(bytes);
  NoProgress progress;
  RecordReader reader(source, {.separation = Separation::kComma}, progress);
  ASSERT_TRUE(reader.Next());
  EXPECT_EQ(reader.raw(), "a,\"b\r\nc\"");
  EXPECT_EQ(reader.Field(2), "");
  ASSERT_TRUE(reader.Next());
  EXPECT_EQ(reader.raw(), "\"d\"");
  EXPECT_EQ(reader.number(), 2U);
  EXPECT_EQ(reader.line(), 3U);
}

TEST(RecordWriter, WritesWhatIsReadBackAlike) {
  const std::vector<std::string_view> fields = {"a", "", "b\"c", "d,e;f", "g h", ""};
  for (const std::u16string_view name : {u"tab", u"comma", u"semicolon", u"|", u"::"}) {
    const RecordFormat format = FormatOfDelimiter(name, Encoding::kGbk);
    StringSink sink;
    LineWriter lines(sink);
    RecordWriter(lines, format).Write(fields, 1);
    lines.Flush();
    EXPECT_EQ(Read(sink.bytes(), format), (Rows{{fields.begin(), fields.end()}})) << sink.bytes();
  }
}

TEST(RecordWriter, RefusesWhatCannotBeHeld) {
  struct Case {
    std::u16string_view delimiter;
    std::string field;
    bool isHeld;
  };
  const Case cases[] = {
      {u"tab", "a\tb", false}, {u"tab", "a\nb", false}, {u"blanks", "a b", false}, {u"blanks", "\xA1\xA1", false},
      {u"|", "a|b", false},    {u"|", "\x81|", true},   {u"comma", "a\nb", true},  {u"tab", "a\rb,", true},
  };
  for (const Case& c : cases) {
    StringSink sink;
    LineWriter lines(sink);
    RecordWriter writer(lines, FormatOfDelimiter(c.delimiter, Encoding::kGbk));
    const std::vector<std::string_view> fields = {"x", c.field};
    if (c.isHeld) {
      EXPECT_NO_THROW(writer.Write(fields, 7));
      continue;
    }
    try {
      writer.Write(fields, 7);
      FAIL() << c.field;
    } catch (const RecordError& error) {
      EXPECT_EQ(error.line(), 7U);
      EXPECT_EQ(error.column(), 2U);
    }
    lines.Flush();
    EXPECT_EQ(sink.bytes(), "");
  }
}

}  // namespace
}  // namespace scrivanta
