#include <random>

#include <gtest/gtest.h>

#include "lines/duplicates/DuplicateFilter.h"
#include "lines/duplicates/KeyIndex.h"

namespace scrivanta::testing {
namespace {

struct Filtered {
  std::u16string kept;
  std::u16string report;
};

template <typename Filter>
Filtered RunFilter(std::u16string_view text, const Filter& filter) {
  const std::string bytes = Encode(Encoding::kGbk, text);
  MemorySource source(bytes);
  NoProgress progress;
  LineReader reader(source, LineEnds::kCrLf, progress);
  StringSink kept;
  StringSink report;
  LineWriter keptWriter(kept);
  LineWriter reportWriter(report);
  filter(reader, keptWriter, reportWriter);
  keptWriter.Flush();
  reportWriter.Flush();
  return {Decode(Encoding::kGbk, kept.bytes()), Decode(Encoding::kGbk, report.bytes())};
}

Filtered RunWhole(std::u16string_view text, DuplicateKey key = DuplicateKey::kLine) {
  return RunFilter(text, [&](LineReader& in, LineWriter& kept, LineWriter& report) {
    FilterDuplicates(in, kept, report, {.key = key});
  });
}

std::u16string Dropped(const Filtered& filtered) {
  const std::string keptBytes = Encode(Encoding::kGbk, filtered.kept);
  const std::string reportBytes = Encode(Encoding::kGbk, filtered.report);
  MemorySource keptSource(keptBytes);
  MemorySource reportSource(reportBytes);
  NoProgress progress;
  LineReader kept(keptSource, LineEnds::kCrLf, progress);
  LineReader report(reportSource, LineEnds::kCrLf, progress);
  StringSink sink;
  LineWriter writer(sink);
  DropReportedLines(kept, report, writer, progress);
  writer.Flush();
  return Decode(Encoding::kGbk, sink.bytes());
}

constexpr std::u16string_view kReportHeader = u"\r\n\r\n\r\n\r\n\r\n\r\n以下为重复de文字行：\r\n";

TEST(DuplicateFilter, KeepsTheFirstAndReportsTheOthers) {
  struct Case {
    std::u16string text;
    std::u16string kept;
    std::u16string repeats;
  };
  const Case cases[] = {
      {u"x\r\ny\r\nx\r\n\r\n\r\nx", u"x\r\ny\r\n\r\n\r\n", u"x\r\nx\r\n"},
      {u"", u"", u""},
      {u"\r\n\r\n", u"\r\n\r\n", u""},
      {u"a\r\nA\r\nab", u"a\r\nA\r\nab\r\n", u""},
      {u"a b\r\nb\r\na\r\na b", u"a b\r\n", u"b\r\na\r\na b\r\n"},
      {u"甲 乙 丙\r\n乙 丙\r\n甲 丙\r\n乙", u"甲 乙 丙\r\n甲 丙\r\n", u"乙 丙\r\n乙\r\n"},
      // Between two keys there are two spaces, so a line with two spaces is found across them.
      {u"a\r\nb\r\nc\r\na  b\r\nb  c\r\na  c", u"a\r\nb\r\nc\r\na  c\r\n", u"a  b\r\nb  c\r\n"},
      {u"a \r\na\r\n a", u"a \r\n a\r\n", u"a\r\n"},
      {u"a\r\nb\r\n ", u"a\r\nb\r\n \r\n", u""},
      {u"x\ra\r\nx\ra\r\nx", u"x\ra\r\nx\r\n", u"x\ra\r\n"},
  };
  for (const Case& c : cases) {
    const Filtered filtered = RunWhole(c.text);
    EXPECT_EQ(filtered.kept, c.kept);
    EXPECT_EQ(filtered.report, std::u16string(kReportHeader) + (c.repeats.empty() ? u"" : u"\r\n") + c.repeats);
  }
}

TEST(DuplicateFilter, ComparesFileNames) {
  const Filtered filtered =
      RunWhole(u"D:\\a\\x.txt\r\nE:\\x.txt\r\nx.txt\r\nD:\\a\\y.txt\r\nC:\\\r\nD:\\", DuplicateKey::kFileName);
  EXPECT_EQ(filtered.kept, u"D:\\a\\x.txt\r\nD:\\a\\y.txt\r\n");
  EXPECT_TRUE(filtered.report.ends_with(u"E:\\x.txt\r\nx.txt\r\nC:\\\r\nD:\\\r\n"));
}

TEST(DuplicateFilter, FindsConsecutiveRepeats) {
  const auto run = [](std::u16string_view text) {
    return RunFilter(text, [](LineReader& in, LineWriter& kept, LineWriter& report) {
      FilterConsecutiveDuplicates(in, kept, report, Encoding::kGbk);
    });
  };
  EXPECT_EQ(run(u"a\r\na\r\nb\r\na").kept, u"a\r\nb\r\na\r\n");
  EXPECT_EQ(run(u"a\r\na\r\nb\r\na").report, u"以下为重复de文字行：\r\na\r\n");
  EXPECT_EQ(run(u"\r\n\r\n\r\na\r\nA\r\n").kept, u"\r\na\r\nA\r\n");
  EXPECT_EQ(run(u"\r\n\r\n\r\na\r\nA\r\n").report, u"以下为重复de文字行：\r\n\r\n\r\n");
  EXPECT_EQ(run(u"").kept, u"");
}

TEST(DuplicateFilter, DropsEveryCopy) {
  struct Case {
    std::u16string kept;
    std::u16string report;
    std::u16string dropped;
  };
  const Case cases[] = {
      {u"x\r\ny\r\n\r\n\r\n", u"\r\nhead\r\n\r\nx\r\nx\r\n", u"y\r\n\r\n\r\n"},
      {u"ab\r\nabcd\r\nbc\r\n", u"head\r\nabc\r\n", u"abcd\r\nbc\r\n"},
      {u"he\r\nhead\r\n", u"\r\nhead\r\n", u"he\r\nhead\r\n"},  // the header is no repeat
      {u"he\r\nhead\r\n", u"head\r\nhead\r\n", u""},
      {u"ab\r\r\nabc\r\r\n", u"head\r\nabc\r\n", u"ab\r\r\n"},
      {u"a\r\n", u"head\r\n", u"a\r\n"},
      {u"甲\r\n乙\r\n", u"head\r\n甲乙\r\n乙甲\r\n", u""},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(Dropped({c.kept, c.report}), c.dropped);
  }
}

// The rule as it is told: a plain search through the joined keys and through the report.
Filtered PlainSearch(const std::vector<std::u16string>& lines) {
  std::u16string seen;
  std::u16string repeats;
  Filtered filtered;
  for (const std::u16string& line : lines) {
    const std::u16string key = u" " + line + u" ";
    if (line.empty()) {
      filtered.kept += u"\r\n";
    } else if (seen.find(key) != std::u16string::npos) {
      repeats += u"\r\n" + line;
    } else {
      seen += key;
      filtered.kept += line + u"\r\n";
    }
  }
  filtered.report = std::u16string(kReportHeader) + repeats + (repeats.empty() ? u"" : u"\r\n");
  return filtered;
}

std::u16string PlainDrop(const std::vector<std::u16string>& lines, const std::u16string& report) {
  std::u16string out;
  for (const std::u16string& line : lines) {
    if (line.empty() || report.find(u"\r\n" + line, kReportHeader.size() - 2) == std::u16string::npos) {
      out += line + u"\r\n";
    }
  }
  return out;
}

std::vector<std::u16string> Split(const std::u16string& text) {
  std::vector<std::u16string> lines;
  for (std::size_t begin = 0; begin < text.size();) {
    const std::size_t end = text.find(u"\r\n", begin);
    lines.push_back(text.substr(begin, end - begin));
    begin = end + 2;
  }
  return lines;
}

TEST(DuplicateFilter, AgreesWithAPlainSearch) {
  std::mt19937 random(3);
  const std::u16string_view alphabets[] = {u"a ", u"ab ", u"a一 ", u"abc  ", u"a\r "};
  for (int round = 0; round < 500; ++round) {
    const std::u16string_view alphabet = alphabets[random() % std::size(alphabets)];
    const std::size_t longest = 1 + random() % 12;
    std::vector<std::u16string> lines(random() % 80);
    std::u16string text;
    for (std::u16string& line : lines) {
      line.resize(random() % longest);
      for (char16_t& unit : line) {
        unit = alphabet[random() % alphabet.size()];
      }
      text += line + u"\r\n";
    }
    const Filtered expected = PlainSearch(lines);
    const Filtered filtered = RunWhole(text);
    ASSERT_EQ(filtered.kept, expected.kept);
    ASSERT_EQ(filtered.report, expected.report);
    ASSERT_EQ(Dropped(filtered), PlainDrop(Split(filtered.kept), filtered.report));
  }
}

// Many words, so that most lines have neighbours that are new; others are cut out of what has been seen, across lines
// too.
TEST(DuplicateFilter, AgreesWithAPlainSearchWhereNeighboursAreNew) {
  std::mt19937 random(5);
  KeyIndex seen(0);
  std::string joined = " ";
  std::size_t repeats = 0;
  for (int i = 0; i < 4'000; ++i) {
    std::string line;
    if (i > 0 && random() % 3 == 0) {
      const std::size_t begin = joined.find(' ', random() % (joined.size() - 1)) + 1;
      const std::size_t end = joined.find(' ', std::min(begin + random() % 40, joined.size() - 1));
      line = joined.substr(begin, end - begin);
    } else {
      for (std::size_t words = 2 + random() % 6; words > 0; --words) {
        line += std::to_string(random() % 9'000) + (words > 1 ? " " : "");
      }
    }
    const bool isRepeat = joined.find(" " + line + " ") != std::string::npos;
    repeats += isRepeat ? 1 : 0;
    joined += isRepeat ? "" : (i > 0 ? " " : "") + line + " ";
    ASSERT_EQ(seen.ContainsOrAdd(line), isRepeat) << line;
  }
  EXPECT_GT(repeats, 500U);
}

// Few words and long lines: single words are too frequent, and runs of several words are looked up. The alphabet has a
// letter a word, so that a place is a letter and the plain search stays quick.
TEST(DuplicateFilter, AgreesWithAPlainSearchWhereWordsAreFrequent) {
  std::mt19937 random(4);
  for (const unsigned words : {2U, 3U, 12U}) {
    KeyIndex seen(0);
    std::string joined;
    std::size_t repeats = 0;
    for (int i = 0; i < 6'000; ++i) {
      std::string line;
      const std::size_t count = 1 + random() % (words == 12 ? 6 : 16);
      for (std::size_t word = 0; word < count; ++word) {
        line += static_cast<char>('a' + random() % words);
        line += random() % 50 == 0 ? "  " : " ";
      }
      line.pop_back();
      const bool isRepeat = joined.find(" " + line + " ") != std::string::npos;
      repeats += isRepeat ? 1 : 0;
      if (!isRepeat) {
        joined += " " + line + " ";
      }
      ASSERT_EQ(seen.ContainsOrAdd(line), isRepeat) << line;
    }
    EXPECT_GT(repeats, 500U);
    EXPECT_LT(repeats, 6'000U);
  }
}

}  // namespace
}  // namespace scrivanta::testing
