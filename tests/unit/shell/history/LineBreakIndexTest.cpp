#include <algorithm>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "shell/history/LineBreakIndex.h"

namespace scrivanta {
namespace {

// The document text of a text as the control has it.
std::u16string Expanded(std::u16string_view controlText) {
  std::u16string text;
  for (const char16_t unit : controlText) {
    text += unit == u'\r' ? u"\r\n" : std::u16string(1, unit);
  }
  return text;
}

void ExpectAllPositions(const LineBreakIndex& index, const std::u16string& controlText) {
  ASSERT_EQ(index.controlLength(), controlText.size());
  ASSERT_EQ(index.textLength(), Expanded(controlText).size());
  std::size_t text = 0;
  std::size_t line = 0;
  for (std::size_t control = 0; control <= controlText.size(); ++control) {
    ASSERT_EQ(index.ToText(ControlPos{control}), TextPos{text});
    ASSERT_EQ(index.ToControl(TextPos{text}), ControlPos{control});
    ASSERT_EQ(index.LineOf(ControlPos{control}), line);
    if (control == 0 || controlText[control - 1] == u'\r') {
      ASSERT_EQ(index.LineStart(line), ControlPos{control});
    }
    ++text;
    if (control < controlText.size() && controlText[control] == u'\r') {
      ASSERT_EQ(index.ToControl(TextPos{text}), ControlPos{control}) << "between CR and LF";
      ++text;
      ++line;
    }
  }
  ASSERT_EQ(index.lineCount(), line + 1);
}

TEST(LineBreakIndex, FollowsRandomEditsAsIfBuiltAnew) {
  std::mt19937 random(7);
  const auto below = [&random](std::size_t bound) {
    return std::uniform_int_distribution<std::size_t>(0, bound)(random);
  };
  std::u16string controlText = u"ab\r\rc";
  LineBreakIndex index(Expanded(controlText));
  ExpectAllPositions(index, controlText);
  for (int round = 0; round < 400; ++round) {
    const std::size_t start = below(controlText.size());
    const std::size_t removed = std::min(below(12), controlText.size() - start);
    std::u16string inserted;
    for (std::size_t i = below(10); i > 0; --i) {
      inserted += u"a\r中\n"[below(3)];
    }
    controlText.replace(start, removed, inserted);
    index.Replace({ControlPos{start}, removed}, inserted);
    ExpectAllPositions(index, controlText);
    if (HasFatalFailure()) {
      return;
    }
  }
}

TEST(LineBreakIndex, RangesTakeWholeBreaks) {
  const LineBreakIndex index(u"ab\r\ncd\r\n");
  struct Case {
    TextRange text;
    ControlRange control;
  };
  const Case cases[] = {
      {{{0}, 2}, {{0}, 2}},   {{{0}, 3}, {{0}, 3}},        {{{0}, 4}, {{0}, 3}}, {{{2}, 1}, {{2}, 1}},
      {{{3}, 1}, {{2}, 1}},   {{{3}, 0}, {{2}, 0}},        {{{4}, 2}, {{3}, 2}}, {{{6}, 99}, {{5}, 1}},
      {{{99}, 99}, {{6}, 0}}, {{{0}, SIZE_MAX}, {{0}, 6}},
  };
  for (const Case& one : cases) {
    EXPECT_EQ(index.ToControl(one.text), one.control) << one.text.start.value << " " << one.text.length;
  }
  EXPECT_EQ(index.ToText(ControlRange{{1}, 3}), (TextRange{{1}, 4}));
  EXPECT_EQ(index.ToText(ControlRange{{3}, SIZE_MAX}), (TextRange{{4}, 4}));
}

}  // namespace
}  // namespace scrivanta
