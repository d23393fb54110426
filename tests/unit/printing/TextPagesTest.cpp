#include <gtest/gtest.h>

#include "printing/TextPages.h"
#include "support/ScriptedWorkbench.h"
#include "text/Surrogates.h"

namespace scrivanta {
namespace {

// An ASCII character takes one column, a Chinese one two, a pair of surrogates two.
class ColumnMeasure final : public LineMeasure {
 public:
  explicit ColumnMeasure(std::size_t columns) : columns_(columns) {}

  std::size_t FittingUnits(std::u16string_view text) const override {
    std::size_t used = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
      used += text[i] < 0x80 || IsSurrogate(text[i]) ? 1 : 2;
      if (used > columns_) {
        return i;
      }
    }
    return text.size();
  }

 private:
  std::size_t columns_;
};

using Lines = std::vector<std::u16string>;

std::vector<Lines> PagesOf(const std::u16string& text, std::size_t columns, std::size_t lines) {
  const ColumnMeasure measure(columns);
  TextPages pages(text, measure, lines);
  NoProgress progress;
  pages.LayOut(progress);
  std::vector<Lines> all;
  for (std::size_t i = 0; i < pages.pageCount(); ++i) {
    all.push_back(pages.LinesOf(i));
  }
  return all;
}

TEST(TextPagesTest, LinesAreBrokenWhereAReaderExpectsIt) {
  struct Case {
    const char* what;
    std::u16string text;
    Lines lines;
  };
  const std::vector<Case> cases = {
      {"a full line", u"0123456789", {u"0123456789"}},
      {"the last line break begins no line", u"a\r\n", {u"a"}},
      {"empty lines", u"\r\n\r\na", {u"", u"", u"a"}},
      {"Chinese between any two characters", u"一二三四五六", {u"一二三四五", u"六"}},
      {"half a Chinese character too wide", u"a一二三四五", {u"a一二三四", u"五"}},
      {"not within a word", u"one two three", {u"one two ", u"three"}},
      {"nor before a number after Chinese", u"一二三 12345", {u"一二三 ", u"12345"}},
      {"blanks stay with the line before", u"0123456789   a", {u"0123456789   ", u"a"}},
      {"and at the end make no line of their own", u"0123456789   \r\nb", {u"0123456789   ", u"b"}},
      {"a word longer than the line", u"0123456789abcdef", {u"0123456789", u"abcdef"}},
      {"no pair of surrogates is taken apart", u"012345678😀x", {u"012345678", u"😀x"}},
      {"tabs", u"\ta\tb", {u"        a       ", u"b"}},
      {"a tab behind Chinese", u"一\ta", {u"一      a"}},
      {"other control characters", std::u16string(u"a\0b\x01", 4), {u"a b "}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    EXPECT_EQ(PagesOf(c.text, 10, 100), std::vector<Lines>{c.lines});
  }
}

TEST(TextPagesTest, PagesHoldTheirNumberOfLines) {
  EXPECT_TRUE(PagesOf(u"", 10, 3).empty());
  EXPECT_EQ(PagesOf(u"1\r\n2\r\n3", 10, 3), (std::vector<Lines>{{u"1", u"2", u"3"}}));
  EXPECT_EQ(PagesOf(u"1\r\n2\r\n3\r\n", 10, 3), (std::vector<Lines>{{u"1", u"2", u"3"}}));
  EXPECT_EQ(PagesOf(u"1\r\n2\r\n3\r\n4", 10, 3), (std::vector<Lines>{{u"1", u"2", u"3"}, {u"4"}}));
  // A broken line goes over the edge of the page.
  EXPECT_EQ(PagesOf(u"1\r\n0123456789ab", 10, 2), (std::vector<Lines>{{u"1", u"0123456789"}, {u"ab"}}));
}

// Narrower than a character: a page without progress would never end.
TEST(TextPagesTest, EveryLineTakesSomething) {
  EXPECT_EQ(PagesOf(u"一😀a", 0, 2), (std::vector<Lines>{{u"一", u"😀"}, {u"a"}}));
}

TEST(TextPagesTest, NoCharacterOfALongTextIsLost) {
  std::u16string text;
  for (int i = 0; i < 20'000; ++i) {
    text += i % 7 == 0 ? u"😀" : i % 3 == 0 ? u"字" : u"x";
  }
  for (const std::size_t columns : {7U, 80U, 5000U}) {
    std::u16string printed;
    for (const Lines& page : PagesOf(text, columns, 50)) {
      for (const std::u16string& line : page) {
        EXPECT_FALSE(IsLowSurrogate(line.front()));
        printed += line;
      }
    }
    EXPECT_EQ(printed, text) << columns;
  }
}

TEST(TextPagesTest, LayingOutCanBeStopped) {
  testing::ScriptedWorkbench workbench;
  workbench.interruptAfter = 2;
  const auto work = workbench.StartWork();
  const ColumnMeasure measure(10);
  TextPages pages(std::u16string(100'000, u'x'), measure, 50);
  EXPECT_THROW(pages.LayOut(work->progress()), Interrupted);
}

}  // namespace
}  // namespace scrivanta
