#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "fuzz/RunFuzz.h"
#include "tables/FixedWidth.h"
#include "tables/RecordReader.h"
#include "tables/RecordWriter.h"

namespace scrivanta {
namespace {

using Rows = std::vector<std::vector<std::string>>;

Rows Read(std::string_view bytes, const RecordFormat& format) {
  MemorySource source(bytes);
  NoProgress progress;
  RecordReader reader(source, format, progress);
  Rows rows;
  while (reader.Next()) {
    EXPECT_FALSE(reader.fields().empty());
    rows.emplace_back(reader.fields().begin(), reader.fields().end());
  }
  return rows;
}

// What was read and can be written is read back alike.
void CheckRoundTrip(const Rows& rows, const RecordFormat& format) {
  StringSink sink;
  LineWriter lines(sink);
  RecordWriter writer(lines, format);
  for (const auto& row : rows) {
    const std::vector<std::string_view> fields(row.begin(), row.end());
    writer.Write(fields, 1);
  }
  lines.Flush();
  EXPECT_EQ(Read(sink.bytes(), format), rows);
}

// The fields of fixed widths, put together, are the line.
void CheckFixedWidths(std::string_view bytes, Encoding encoding, WidthUnit unit) {
  const RecordFormat format{.separation = Separation::kFixedWidths,
                            .widths = {1, 4, 2},
                            .unit = unit,
                            .lastTakesRest = true,
                            .encoding = encoding};
  MemorySource source(bytes);
  NoProgress progress;
  RecordReader reader(source, format, progress);
  const TextWidth width(encoding, unit);
  while (reader.Next()) {
    std::string joined;
    for (std::size_t i = 0; i < reader.fields().size(); ++i) {
      joined += reader.fields()[i];
      EXPECT_TRUE(i >= format.widths.size() || width.Of(reader.fields()[i]) <= format.widths[i]);
    }
    EXPECT_EQ(joined, reader.raw());
  }
}

// With the widths that are found every record is of one width and comes back.
void CheckFixedRecords(const Rows& rows, const RecordFormat& format, std::string_view bytes) {
  MemorySource source(bytes);
  NoProgress progress;
  RecordReader measured(source, format, progress);
  FixedLayout layout = FindLayout(measured, TextWidth(format.encoding, WidthUnit::kGbkBytes), WidthUnit::kGbkBytes);
  MemorySource again(bytes);
  RecordReader records(again, format, progress);
  StringSink sink;
  LineWriter lines(sink);
  EXPECT_EQ(WriteFixedWidth(records, lines, layout, format.encoding), rows.size());
  lines.Flush();
  MemorySource fixed(sink.bytes());
  LineReader reader(fixed, LineEnds::kCrLf, progress);
  std::size_t width = 0;
  for (const FixedColumn& column : layout.columns) {
    width += column.width;
  }
  while (reader.Next()) {
    EXPECT_EQ(TextWidth(format.encoding, WidthUnit::kGbkBytes).Of(reader.line()), width);
  }
}

void FuzzRecords(std::string_view bytes) {
  for (const Encoding encoding : {Encoding::kGbk, Encoding::kUtf8}) {
    for (const WidthUnit unit : {WidthUnit::kGbkBytes, WidthUnit::kCells, WidthUnit::kCharacters}) {
      CheckFixedWidths(bytes, encoding, unit);
    }
    for (const std::u16string_view name : {u"tab", u"comma", u"semicolon", u"|", u"中"}) {
      const RecordFormat format = FormatOfDelimiter(name, encoding);
      try {
        const Rows rows = Read(bytes, format);
        // A second byte-order mark is text, and at the front again it would be taken for one.
        if (rows.empty() || !rows[0][0].starts_with("\xEF\xBB\xBF")) {
          CheckRoundTrip(rows, format);
        }
        if (format.separation == Separation::kTab && encoding == Encoding::kGbk) {
          CheckFixedRecords(rows, format, bytes);
        }
      } catch (const RecordError& error) {
        EXPECT_GE(error.line(), 1U);
        EXPECT_GE(error.column(), 1U);
      }
    }
    Read(bytes, FormatOfDelimiter(u"blanks", encoding));
    Read(bytes, {.separation = Separation::kPattern, .text = u"[,\\s]+", .encoding = encoding});
  }
}

TEST(Fuzz, Records) {
  static constexpr std::string_view kInputs[] = {
      "",
      "a,b,\"c \"\"d\"\"\r\ne\",\r\n\"\",x;y\n",
      "\xEF\xBB\xBFname\tage\n\xE4\xB8\xAD\xE6\x96\x87\t12\n",
      "\xD6\xD0\xCE\xC4|\x81|\x81\x30\x81\x30|1\n  a \t\xA1\xA1 b \x1A",
  };
  static constexpr std::string_view kTokens[] = {
      "\r\n", "\n",       "\r",   "\"",           "\"\"",     ",", ";",    "\t",
      "|",    "\xD6\xD0", "\x81", "\xE4\xB8\xAD", "\xA1\xA1", "0", "\x1A",
  };
  RunFuzz(FuzzRecords, kInputs, kTokens);
}

}  // namespace
}  // namespace scrivanta
