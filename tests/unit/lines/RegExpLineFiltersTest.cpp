#include <random>

#include <gtest/gtest.h>

#include "lines/RegExpLineFilters.h"
#include "regexp/Markers.h"
#include "regexp/RegExpErrors.h"
#include "regexp/RegExpReplace.h"

namespace scrivanta::testing {
namespace {

std::u16string HaveAndHaveNot(std::u16string_view text, const std::u16string& pattern) {
  StringSink have;
  StringSink haveNot;
  LineWriter haveWriter(have);
  LineWriter haveNotWriter(haveNot);
  NoProgress progress;
  RegExpWordFilter(text, haveWriter, haveNotWriter, {pattern}, BuiltInRegExpEngine(), progress);
  haveWriter.Flush();
  haveNotWriter.Flush();
  std::u16string all = Decode(Encoding::kGbk, have.bytes());
  const std::u16string rest = Decode(Encoding::kGbk, haveNot.bytes());
  all.erase(0, all.find(u"\r\n") + 2);
  return all + u"|" + rest.substr(rest.find(u"\r\n", rest.find(u'：')) + 2);
}

TEST(RegExpLineFilters, DivideMatchesAndLines) {
  struct Case {
    std::u16string text;
    std::u16string pattern;
    std::u16string groups;  // without headers, a bar between them
  };
  const Case cases[] = {
      {u"a1b22\r\n一\r\n\r\n3\r\n", u"\\d+", u"1\r\n22\r\n3\r\n|\r\n一\r\n\r\n\r\n"},
      {u"ab\r\nx", u"q", u"|ab\r\nx\r\n"},
      {u"A a\r\n", u"a", u"a\r\n|\r\n"},                               // minds letter case
      {u"ab\r\ncd\r\nef\r\n", u"b\\r\\nc", u"b\r\nc\r\n|\r\nef\r\n"},  // a match across lines
      {u"ab\r\ncd\r\n", u"x*", u"|\r\n\r\n\r\n"},                      // matches the empty text everywhere
      {u"毛笔 120\r\n笔架 退货\r\n宣纸 40\r\n", u"^((?!退货).)*?$",
       u"毛笔 120\r\n宣纸 40\r\n|\r\n笔架 退货\r\n\r\n\r\n"},
      {u"ab\r\ncd\r\n", u"^.*b.*?$", u"ab\r\n|\r\ncd\r\n"},
      {u"1dfvjew74ut*&^%$@!~695gjd*&^!~845ut\r\n2\r\n", u"q", u"|\r\n2\r\n"},  // the text holds the marker
      {u"", u"a", u"|"},
      {u"ab\r\ncd\r\nef", u"b\\r\\n", u"b\r\n\r\n|\r\nef\r\n"},  // takes line breaks
      {u"a\r\nb\r\n", u"\\r", u"|\r\n\r\n"},                     // leaves half of one, which is one
      {u"a\r\n\r\nb", u"^", u"|\r\n\r\n\r\n"},
      {u"a\nb\r\nc", u"c", u"c\r\n|a\r\nb\r\n\r\n"},
      {u"a\nb\r\n", u"q|\\r\\n", u"\r\n\r\n|\r\n"},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(HaveAndHaveNot(c.text, c.pattern), c.groups);
  }
}

// The rule as it is told: the matches replaced by the marker, and every line that holds it emptied.
std::u16string PlainHaveNot(std::u16string_view text, std::u16string_view pattern) {
  NoProgress progress;
  std::u16string rest = ReplaceInText(BuiltInRegExpEngine(), text, pattern, kSplitMarker, {}, progress);
  std::u16string lines;
  while (!rest.empty()) {
    const std::size_t end = std::min(rest.find(u"\r\n"), rest.size());
    const std::u16string line = rest.substr(0, end);
    lines += (line.find(kSplitMarker) == std::u16string::npos ? line : std::u16string()) + u"\r\n";
    rest.erase(0, end + 2);
  }
  return lines;
}

TEST(RegExpLineFilters, AgreeWithReplacingAndSplitting) {
  std::mt19937 random(5);
  const std::u16string pieces[] = {u"a", u"b", u"一", u"\r\n", u"\r\n", u"\r", u"\n"};
  const std::u16string patterns[] = {u"a", u"b*", u"a|\\r\\n", u"\\r",   u"\\n",
                                     u"^", u"$",  u"^.*?$",    u"[^a]+", u"(a|b)+\\s"};
  for (int round = 0; round < 2'000; ++round) {
    std::u16string text;
    for (auto i = random() % 12; i > 0; --i) {
      text += pieces[random() % std::size(pieces)];
    }
    const std::u16string& pattern = patterns[random() % std::size(patterns)];
    const std::u16string groups = HaveAndHaveNot(text, pattern);
    ASSERT_EQ(groups.substr(groups.find(u'|') + 1), PlainHaveNot(text, pattern));
  }
}

TEST(RegExpLineFilters, WriteNothingForAPatternThatIsNone) {
  StringSink sink;
  LineWriter writer(sink);
  NoProgress progress;
  EXPECT_THROW(RegExpWordFilter(u"a", writer, writer, {u"("}, BuiltInRegExpEngine(), progress), RegExpSyntaxError);
  writer.Flush();
  EXPECT_EQ(sink.bytes(), "");
}

TEST(RegExpLineFilters, FindDuplicatesByWhatIsExtracted) {
  struct Case {
    std::u16string text;
    std::u16string pattern;
    std::u16string kept;
    std::u16string repeats;
  };
  const Case cases[] = {
      {u"GB 1 a\r\nGB 2\r\nGB-1 b\r\n", u"[A-Z]+|\\d+", u"GB 1 a\r\nGB 2\r\n", u"GB-1 b\r\n"},
      {u"一\r\n一\r\n\r\n\r\n", u"\\d", u"一\r\n一\r\n\r\n\r\n", u""},  // nothing is extracted
      {u"A1 2\r\nA 12\r\n", u"[A-Z]|\\d+", u"A1 2\r\nA 12\r\n", u""},   // other matches, though the same letters
      {u"a\r\nA\r\n", u"a", u"a\r\nA\r\n", u""},
      {u"ab\r\nac\r\n", u"^a|x*", u"ab\r\n", u"ac\r\n"},  // empty matches count for nothing
  };
  for (const Case& c : cases) {
    const std::string bytes = Encode(Encoding::kGbk, c.text);
    MemorySource source(bytes);
    NoProgress progress;
    LineReader reader(source, LineEnds::kCrLf, progress);
    StringSink kept;
    StringSink report;
    LineWriter keptWriter(kept);
    LineWriter reportWriter(report);
    RegExpFilterDuplicates(reader, keptWriter, reportWriter, c.pattern, Encoding::kGbk, BuiltInRegExpEngine(),
                           progress);
    keptWriter.Flush();
    reportWriter.Flush();
    EXPECT_EQ(Decode(Encoding::kGbk, kept.bytes()), c.kept);
    EXPECT_EQ(Decode(Encoding::kGbk, report.bytes()),
              u"\r\n\r\n\r\n\r\n\r\n\r\n以下为重复de文字行：\r\n" + (c.repeats.empty() ? u"" : u"\r\n" + c.repeats));
  }
}

TEST(RegExpLineFilters, TellHowFarAllLinesHaveCome) {
  class Recorder final : public Progress {
   public:
    void Report(std::uint64_t done, std::uint64_t total) override {
      EXPECT_EQ(total, expectedTotal);
      EXPECT_LE(done, total);
      ++reports;
    }

    std::uint64_t expectedTotal = 0;
    int reports = 0;
  };
  const std::string bytes = std::string(10, 'b') + "\r\n" + std::string(200'000, 'a') + "\r\nb";
  Recorder progress;
  progress.expectedTotal = bytes.size();
  MemorySource source(bytes);
  LineReader reader(source, LineEnds::kCrLf, progress);
  StringSink sink;
  LineWriter writer(sink);
  RegExpFilterDuplicates(reader, writer, writer, u"a", Encoding::kGbk, BuiltInRegExpEngine(), progress);
  EXPECT_GT(progress.reports, 6);  // more than the blocks that were read
}

}  // namespace
}  // namespace scrivanta::testing
