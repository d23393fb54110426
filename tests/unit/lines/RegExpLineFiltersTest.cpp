#include <gtest/gtest.h>

#include "lines/RegExpLineFilters.h"
#include "regexp/RegExpErrors.h"

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
      {u"ab\r\ncd\r\n", u"^.*b.*?$", u"ab\r\n|\r\ncd\r\n"},
      {u"1dfvjew74ut*&^%$@!~695gjd*&^!~845ut\r\n2\r\n", u"q", u"|\r\n2\r\n"},  // the text holds the marker
      {u"", u"a", u"|"},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(HaveAndHaveNot(c.text, c.pattern), c.groups);
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
