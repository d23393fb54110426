#include <algorithm>
#include <random>

#include <gtest/gtest.h>

#include "lines/LineShuffle.h"
#include "lines/LineSort.h"

namespace scrivanta::testing {
namespace {

std::string Sorted(std::string_view input, SortOptions options) {
  MemorySource source(input);
  NoProgress progress;
  LineReader reader(source, LineEnds::kCrLfOrLf, progress);
  const LineStore lines(reader);
  if (options.last == 0) {
    options.last = lines.size();
  }
  StringSink sink;
  LineWriter writer(sink);
  SortLines(lines, writer, options, progress);
  writer.Flush();
  return sink.bytes();
}

std::string SortedText(std::u16string_view input, SortOptions options) {
  options.encoding = Encoding::kUtf8;
  return Sorted(Encode(Encoding::kUtf8, input), options);
}

TEST(LineSort, SortsTheRangeAndTurnsAllLinesRound) {
  EXPECT_EQ(Sorted("c\nb\na\nd", {.first = 2, .last = 3}), "c\r\na\r\nb\r\nd\r\n");
  EXPECT_EQ(Sorted("c\nb\na\nd", {.descending = true, .first = 2, .last = 3}), "d\r\nb\r\na\r\nc\r\n");
  EXPECT_EQ(Sorted("c\nb\na", {.first = 3, .last = 2}), "c\r\nb\r\na\r\n");
  EXPECT_EQ(Sorted("c\nb\na", {.descending = true, .first = 2, .last = 2}), "a\r\nb\r\nc\r\n");
  EXPECT_EQ(Sorted("", {}), "");
}

TEST(LineSort, ComparesTheFirstNumber) {
  struct Case {
    std::string lines;
    std::string sorted;
  };
  const Case cases[] = {
      {"item10\nitem9\nx-3\n", "x-3\r\nitem9\r\nitem10\r\n"},
      {"b1\nnone\na1\n-1\n", "-1\r\nnone\r\nb1\r\na1\r\n"},
      {"99999999999999999999\n123456789012345678901\n3\n", "3\r\n99999999999999999999\r\n123456789012345678901\r\n"},
      {"0.10\n0.1000000000000000000001\n.5\n0.09\n0.1\n", "0.09\r\n0.10\r\n0.1\r\n0.1000000000000000000001\r\n.5\r\n"},
      {"-2.5\n-2.50000000000000000001\n-2\n-0\n0\n-00.5",
       "-2.50000000000000000001\r\n-2.5\r\n-2\r\n-00.5\r\n-0\r\n0\r\n"},
      {"1.2.3\n1.x\n1\n0001.1\n", "1.x\r\n1\r\n0001.1\r\n1.2.3\r\n"},
      {"- 2\n1", "1\r\n- 2\r\n"},
      {"100000000000000\n99999999999999\n100000000000001\n",
       "99999999999999\r\n100000000000000\r\n100000000000001\r\n"},
      // The digits of these belong to characters: U+3400 and U+1F600 in four bytes.
      {"\x81\x39\xEE\x39 5\n4\n\x94\x39\xFC\x36 3\n", "\x94\x39\xFC\x36 3\r\n4\r\n\x81\x39\xEE\x39 5\r\n"},
      // The second bytes of two characters; between them and the digit nothing begins.
      {"\xB0\xA1"
       "5\n\xB0\xA1\xB0\xA1"
       "4\n",
       "\xB0\xA1\xB0\xA1"
       "4\r\n\xB0\xA1"
       "5\r\n"},
      {"\x81"
       "3\n2\n",
       "2\r\n\x81"
       "3\r\n"},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(Sorted(c.lines, {.by = SortBy::kNumber}), c.sorted);
  }
}

TEST(LineSort, ComparesVeryLongNumbers) {
  const std::string nines(100'000, '9');
  const std::string small = "0." + std::string(100'000, '0');
  EXPECT_TRUE(
      Sorted(nines + "8\n" + nines + "\n-" + nines + "9\n" + small + "2\n" + small + "1\n", {.by = SortBy::kNumber}) ==
      "-" + nines + "9\r\n" + small + "1\r\n" + small + "2\r\n" + nines + "\r\n" + nines + "8\r\n");
}

TEST(LineSort, OrdersByCodeUnitsInEveryEncoding) {
  // In bytes of the code page "一" stands behind "丁" and in UTF-8 the pair stands behind U+FF21.
  const std::u16string lines = u"\uFF21\r\n一\r\na\r\n丁\r\nB\r\n\U00020000\r\n\u00E9\r\nab\r\n";
  const std::u16string sorted = u"B\r\na\r\nab\r\n\u00E9\r\n一\r\n丁\r\n\U00020000\r\n\uFF21\r\n";
  for (const Encoding encoding : {Encoding::kGbk, Encoding::kUtf8}) {
    EXPECT_EQ(Sorted(Encode(encoding, lines), {.encoding = encoding}), Encode(encoding, sorted));
  }
}

TEST(LineSort, OrdersChineseCharactersAsDictionariesDo) {
  struct Case {
    SortBy by;
    std::u16string_view lines;
    std::u16string_view sorted;
  };
  constexpr Case kCases[] = {
      {SortBy::kPinyin, u"张\n王\n阿\n啊\nz\n，\n1\n\n", u"\r\n1\r\nz\r\n，\r\n阿\r\n啊\r\n王\r\n张\r\n"},
      // Tones, then strokes; ü behind u; phrases are read as such.
      {SortBy::kPinyin, u"乱\n吕\n路\n马\n妈\n骂\n八\n巴\n重庆\n重要\n虫",
       u"八\r\n巴\r\n虫\r\n重庆\r\n路\r\n吕\r\n乱\r\n妈\r\n马\r\n骂\r\n重要\r\n"},
      {SortBy::kPinyin, u"中国人\n中国\n中\n中国\n兙\n\U00020001\n",
       u"中\r\n中国\r\n中国\r\n中国人\r\n兙\r\n\U00020001\r\n"},
      {SortBy::kStrokes, u"龘\n三\n丁\n一\n人口\n人\na", u"a\r\n一\r\n丁\r\n人\r\n人口\r\n三\r\n龘\r\n"},
  };
  for (const Case& c : kCases) {
    EXPECT_EQ(SortedText(c.lines, {.by = c.by}), Encode(Encoding::kUtf8, c.sorted));
  }
  EXPECT_EQ(SortedText(u"丙\n乙\n丁\n甲", {.by = SortBy::kPinyin, .first = 2, .last = 3}),
            Encode(Encoding::kUtf8, u"丙\r\n丁\r\n乙\r\n甲\r\n"));
}

TEST(LineSort, TellsNulFromTheEndOfALine) {
  EXPECT_EQ(
      SortedText(std::u16string(u"ab\0\0\nab\nab\0c\nab\0\nab\0\0\0\0\n\0\n\nab", 29), {}),
      Encode(Encoding::kUtf8, std::u16string(u"\r\n\0\r\nab\r\nab\r\nab\0\r\nab\0\0\r\nab\0\0\0\0\r\nab\0c\r\n", 38)));
}

// Against the standard library's sort, on lines that have much in common.
TEST(LineSort, AgreesWithAPlainSort) {
  std::mt19937 random(1);
  const std::vector<std::u16string> alphabets = {u"ab", u"a一\u3400", std::u16string(u"\0a", 2), u"a\uE000", u"一二三"};
  for (int round = 0; round < 60; ++round) {
    const std::u16string& alphabet = alphabets[random() % alphabets.size()];
    std::vector<std::u16string> lines(random() % 2000);
    for (std::u16string& line : lines) {
      line.resize(random() % 3 == 0 ? 30 : random() % 9);
      for (char16_t& unit : line) {
        unit = alphabet[random() % alphabet.size()];
      }
      if (random() % 4 == 0) {
        // Alike in the first half of a pair, too.
        line += random() % 2 == 0 ? u"\U00020000\U0001F600" : u"\U00020001";
      }
    }
    const auto join = [](const std::vector<std::u16string>& list) {
      std::u16string all;
      for (const std::u16string& line : list) {
        all += line + u"\r\n";
      }
      return all;
    };
    const std::u16string input = join(lines);
    std::ranges::sort(lines);
    for (const Encoding encoding : {Encoding::kGbk, Encoding::kUtf8}) {
      ASSERT_EQ(Decode(encoding, Sorted(Encode(encoding, input), {.encoding = encoding})), join(lines));
    }
  }
}

TEST(LineSort, TakesManyEmptyAndVeryLongLines) {
  const std::string empty(1'000'000, '\n');
  EXPECT_EQ(Sorted(empty, {}).size(), 2 * empty.size());
  const std::string longLine(3'000'000, 'x');
  EXPECT_TRUE(Sorted(longLine + "b\n" + longLine + "a\n" + longLine + "c", {}) ==
              longLine + "a\r\n" + longLine + "b\r\n" + longLine + "c\r\n");
}

class StopsAtOnce final : public Progress {
 public:
  void Report(std::uint64_t, std::uint64_t) override { throw Interrupted(); }
};

TEST(LineSort, CanBeInterrupted) {
  NoProgress progress;
  MemorySource source("b\na");
  LineReader reader(source, LineEnds::kCrLfOrLf, progress);
  const LineStore lines(reader);
  StopsAtOnce stop;
  StringSink sink;
  LineWriter writer(sink);
  EXPECT_THROW(SortLines(lines, writer, {.first = 1, .last = 2}, stop), Interrupted);
  EXPECT_THROW(ShuffleLines(lines, writer, 1, stop), Interrupted);
}

std::string Shuffled(std::string_view input, std::uint64_t seed) {
  MemorySource source(input);
  NoProgress progress;
  LineReader reader(source, LineEnds::kCrLfOrLf, progress);
  StringSink sink;
  LineWriter writer(sink);
  ShuffleLines(LineStore(reader), writer, seed, progress);
  writer.Flush();
  return sink.bytes();
}

TEST(LineShuffle, KeepsTheLinesAndRepeatsWithItsSeed) {
  std::string lines;
  for (int i = 0; i < 1000; ++i) {
    lines += std::to_string(i % 300) + (i % 7 == 0 ? "\r\n\r\n" : "\r\n");
  }
  const std::string one = Shuffled(lines, 1);
  EXPECT_NE(one, lines);
  EXPECT_NE(one, Shuffled(lines, 2));
  EXPECT_EQ(one, Shuffled(lines, 1));
  EXPECT_EQ(Sorted(one, {}), Sorted(lines, {}));
  EXPECT_EQ(Shuffled("only", 5), "only\r\n");
  EXPECT_EQ(Shuffled("", 5), "");
}

// The exchange walk over three lines ends in some orders more often than in others: 4, 5, 5, 5, 4 and 4 ways of 27.
TEST(LineShuffle, IsTheSimpleExchangeWalk) {
  std::map<std::string, int> counts;
  constexpr int kRuns = 27'000;
  for (int seed = 0; seed < kRuns; ++seed) {
    ++counts[Shuffled("a\nb\nc", static_cast<std::uint64_t>(seed))];
  }
  const std::map<std::string, int> ways = {{"a\r\nb\r\nc\r\n", 4}, {"a\r\nc\r\nb\r\n", 5}, {"b\r\na\r\nc\r\n", 5},
                                           {"b\r\nc\r\na\r\n", 5}, {"c\r\na\r\nb\r\n", 4}, {"c\r\nb\r\na\r\n", 4}};
  for (const auto& [order, way] : ways) {
    EXPECT_NEAR(counts[order], way * kRuns / 27, 250) << order;
  }
}

}  // namespace
}  // namespace scrivanta::testing
