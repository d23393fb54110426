#include <gtest/gtest.h>

#include "regexp/Markers.h"
#include "regexp/services/RegExpServices.h"
#include "text/ExplainedError.h"

namespace scrivanta {
namespace {

TEST(MultiReplaceInList, ReplacesItemByItemAndCounts) {
  struct Case {
    std::u16string find;
    std::u16string replace;
    bool ignoreCase;
    std::vector<std::u16string> lines;
    std::vector<std::u16string> results;
    std::size_t count;
  };
  const Case cases[] = {
      {u"a|b", u"x|y", false, {u"ab", u"", u"bA"}, {u"xy", u"", u"yA"}, 3},
      {u"a", u"", true, {u"aAb"}, {u"b"}, 2},
      {u"a|b", u"b|c", false, {u"ab"}, {u"cc"}, 3},
      {u".*", u"$&", false, {u"a.*b"}, {u"a$&b"}, 1},
      {u"a", u"bab", false, {u"aa"}, {u"babbab"}, 2},
      {u"aa", u"a", false, {u"aaaaa"}, {u"aaa"}, 2},
      {u"|", u"|", false, {u"a|"}, {u"a|"}, 0},
      {u"é", u"É", true, {u"éÉ"}, {u"ÉÉ"}, 2},
  };
  NoProgress progress;
  for (const Case& c : cases) {
    std::vector<std::u16string> lines = c.lines;
    std::size_t count = 0;
    MultiReplaceInList(lines, c.find, c.replace, c.ignoreCase, count, progress);
    EXPECT_EQ(lines, c.results);
    EXPECT_EQ(count, c.count);
  }
}

TEST(MultiReplaceInList, TakesTheSwapMarkerInATextForAMarker) {
  NoProgress progress;
  std::vector<std::u16string> lines = {u"a" + std::u16string(kSwapMarker)};
  std::size_t count = 0;
  MultiReplaceInList(lines, u"a", u"ab", false, count, progress);
  EXPECT_EQ(lines.front(), u"abab");
}

TEST(MultiReplaceInList, RefusesListsOfUnequalLength) {
  NoProgress progress;
  std::vector<std::u16string> lines = {u"a"};
  std::size_t count = 0;
  try {
    MultiReplaceInList(lines, u"a|b", u"x", false, count, progress);
    FAIL();
  } catch (const ExplainedError& error) {
    EXPECT_EQ(error.chinese(), u"寻找、替换个数不相等！");
  }
  EXPECT_EQ(lines.front(), u"a");
}

TEST(RegExpMarkerFilter, PartsATextIntoItsMatchesAndTheRest) {
  struct Case {
    std::u16string text;
    std::u16string patterns;
    std::u16string matches;
    std::u16string rest;
  };
  const Case cases[] = {
      {u"ax\r\nb\r\ncx", u"^.*x.*$", u"ax\r\ncx\r\n", u"b\r\n"},
      {u"b\r\nax\r\nc", u"^.*?x.*?$", u"ax\r\n", u"b\r\nc"},
      {u"x1\r\nx2\r\nb\r\n", u"^.*x.*$", u"x1\r\nx2\r\n", u"b\r\n"},
      {u"a\r\n\r\nxb\r\n\r\nc", u"^x.*$", u"xb\r\n", u"a\r\n\r\n\r\nc"},
      {u"one two one", u"one|w", u"one\r\nw\r\none\r\n", u" to "},
      {u"abc", u"x", u"", u"abc"},
      {u"", u"x", u"", u""},
  };
  NoProgress progress;
  for (const Case& c : cases) {
    const auto filter = [&](MarkerFilterMode mode) {
      return MarkerFilterText(BuiltInRegExpEngine(), c.text, c.patterns, mode, false, progress);
    };
    EXPECT_EQ(filter(MarkerFilterMode::kExtract), c.matches);
    EXPECT_EQ(filter(MarkerFilterMode::kRemove), c.rest);
  }
}

}  // namespace
}  // namespace scrivanta
