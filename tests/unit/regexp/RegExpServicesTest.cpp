#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "regexp/RegExpErrors.h"
#include "regexp/RegExpExecute.h"
#include "regexp/RegExpExtract.h"
#include "regexp/RegExpReplace.h"
#include "text/ExplainedError.h"

namespace scrivanta {
namespace {

MatchList Execute(std::u16string& text, std::u16string_view pattern, std::u16string_view replacement,
                  RegExpExecuteOptions options = {.global = true}) {
  NoProgress progress;
  return RegExpExecute(BuiltInRegExpEngine(), text, pattern, replacement, options, progress);
}

std::vector<std::u16string> Extract(std::u16string_view text, std::u16string_view pattern,
                                    const RegExpExtractOptions& options = {}) {
  NoProgress progress;
  return ExtractFromText(BuiltInRegExpEngine(), text, pattern, options, progress);
}

std::u16string Replace(std::u16string_view text, std::u16string_view pattern, std::u16string_view replacement,
                       RegExpReplaceOptions options = {}) {
  NoProgress progress;
  return ReplaceInText(BuiltInRegExpEngine(), text, pattern, replacement, options, progress);
}

TEST(RegExpExecute, NumbersRecordsFromOneAndKeepsTheText) {
  std::u16string text = u"中a1b22";
  const MatchList matches = Execute(text, u"\\d+", kNoReplacement);
  EXPECT_TRUE(matches.found());
  ASSERT_EQ(matches.upperBound(), 2U);
  EXPECT_EQ(matches[1].FirstIndex, 2);
  EXPECT_EQ(matches[2].FirstIndex, 4);
  EXPECT_EQ(matches[2].Length, 2);
  EXPECT_EQ(matches[2].Value, u"22");
  EXPECT_THROW(matches[0], std::out_of_range);
  EXPECT_EQ(text, u"中a1b22");
}

TEST(RegExpExecute, GivesOneEmptyRecordWithoutAMatch) {
  std::u16string text = u"abc";
  const MatchList none = Execute(text, u"x", u"y");
  EXPECT_FALSE(none.found());
  ASSERT_EQ(none.upperBound(), 1U);
  EXPECT_EQ(none[1].Length, 0);
  EXPECT_EQ(none[1].Value, u"");
  EXPECT_EQ(text, u"abc");
  EXPECT_TRUE(Execute(text, u"^", kNoReplacement).found());
}

TEST(RegExpExecute, ReplacesLiterally) {
  struct Case {
    std::u16string text;
    std::u16string pattern;
    std::u16string replacement;
    bool global;
    std::u16string result;
  };
  const Case cases[] = {
      {u"a1b22c", u"\\d+", u"<$&\\1>", true, u"a<$&\\1>b<$&\\1>c"},
      {u"a1b22c", u"\\d+", u"", true, u"abc"},
      {u"a1b22c", u"\\d+", u"333", false, u"a333b22c"},
      {u"ab", u"", u"-", true, u"-a-b-"},
      {u"ab", u"b", u"[*vbnullstring*]", true, u"a[*vbnullstring*]"},
  };
  for (const Case& c : cases) {
    std::u16string text = c.text;
    Execute(text, c.pattern, c.replacement, {.global = c.global});
    EXPECT_EQ(text, c.result);
  }
  std::u16string text = u"aaaa";
  const MatchList matches = Execute(text, u"aa", u"long text");
  EXPECT_EQ(matches[2].FirstIndex, 2) << "places are those of the text as it was";
  text = u"xA\r\nB";
  EXPECT_EQ(
      Execute(text, u"^b$", kNoReplacement, {.multiLine = true, .global = true, .ignoreCase = true})[1].FirstIndex, 4);
}

TEST(RegExpExecute, LeavesTheTextWhenTheSearchFails) {
  std::u16string text = u"b" + std::u16string(40, u'a');
  EXPECT_THROW(Execute(text, u"b|(a+)+[cd]", u"x"), RegExpTooComplex);
  EXPECT_EQ(text.front(), u'b');
  EXPECT_THROW(Execute(text, u"(", u"x"), RegExpSyntaxError);
}

TEST(RegExpExtract, TakesMatchesOrGroups) {
  struct Case {
    std::u16string text;
    std::u16string pattern;
    RegExpExtractOptions options;
    std::vector<std::u16string> results;
  };
  const Case cases[] = {
      {u"a1b22", u"\\d+", {}, {u"1", u"22"}},
      {u"ab", u"x", {}, {}},
      {u"ab\r\n\r\ncd\r\n", u"^.*", {}, {u"ab", u"cd"}},
      {u"ab\r\ncd", u"^.*?\\r\\n", {}, {u"ab\r\n"}},
      {u"ab\rcd", u"b\\r", {}, {u"b"}},
      {u"\r\n\r\n", u"\\r", {}, {}},
      {u"Ab", u"a", {.ignoreCase = true}, {u"A"}},
      {u"k1=v1;k2=v2", u"(k\\d)=(v\\d)", {.groupList = u"2\\1", .groupSeparator = u"-"}, {u"v1-k1", u"v2-k2"}},
      {u"ab", u"a|b", {.groupList = u"1"}, {u"a", u"b"}},
      {u"ab", u"(a)|b", {.groupList = u"1\\7", .groupSeparator = u"+"}, {u"a+", u"+"}},
      {u"ab", u"(a)|b", {.groupList = u"1"}, {u"a"}},
      {u"ab\r\n", u"(.*)", {.groupList = u"1"}, {u"ab\r"}},
      {u"((x)) y", u"\\((.*)\\)", {.repeat = true, .groupList = u"1"}, {u"x"}},
      {u"a(b(c)d)e", u"\\((.*)\\)", {.repeat = true, .groupList = u"1"}, {u"c"}},
      {u"a1b2", u"\\w+", {.repeat = true}, {u"a1b2"}},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(Extract(c.text, c.pattern, c.options), c.results);
  }
  EXPECT_THROW(Extract(u"123456789012", u"\\d+", {.repeat = true, .groupList = u"1\\2", .groupSeparator = u"\\1"}),
               ExplainedError);
}

TEST(RegExpReplace, ExpandsReferences) {
  struct Case {
    std::u16string text;
    std::u16string pattern;
    std::u16string replacement;
    std::u16string result;
  };
  const Case cases[] = {
      {u"ab", u"(a)(b)", u"$2$1", u"ba"},
      {u"ab", u"(a)(b)", u"\\2\\1", u"ba"},
      {u"xay", u"a", u"[$`|$&|$']", u"x[x|a|y]y"},
      {u"a", u"a", u"$$1$", u"$1$"},
      {u"a", u"a", u"$1$x$", u"$1$x$"},
      {u"a", u"(a)", u"$0$00$01$2$10", u"$0$00a$2a0"},
      {u"abcdefghijk", u"(a)(b)(c)(d)(e)(f)(g)(h)(i)(j)(k)", u"$11$10\\11\\12", u"kjka2"},
      {u"b", u"(a)|b", u"<$1>", u"<>"},
      // Without a group \1 is the whole match; an escaped parenthesis passes for a group.
      {u"a-b", u"\\w", u"<\\1>", u"<a>-<b>"},
      {u"(a)", u"\\(a\\)", u"\\1", u"$1"},
      {u"a", u"a", u"\\2", u"$2"},
      {u"ab", u"b", u"\\x\\", u"a\\x\\"},
      {u"aXb", u"", u"y", u"aXb"},
      {u"a\nb", u"a", u"a", u"a\nb"},
      {u"ab", u"x*", u"-", u"-a-b-"},
      {u"a\r\n\r\nb", u"^", u"> ", u"> a\r\n> \r\n> b"},  // a line break is one place
      {u"a\r\nb", u"$", u";", u"a;\r\nb;"},
      {u"a\r\nb", u".*$", u"x", u"x\r\nxx"},  // takes the carriage return
  };
  for (const Case& c : cases) {
    EXPECT_EQ(Replace(c.text, c.pattern, c.replacement), c.result);
  }
  EXPECT_EQ(Replace(u"aA", u"a", u"x", {.global = false}), u"xA");
  EXPECT_EQ(Replace(u"aA", u"a", u"x", {.ignoreCase = true}), u"xx");
  EXPECT_EQ(Replace(u"a\r\na", u"^a", u"x", {.multiLine = false}), u"x\r\na");
}

TEST(RegExpReplace, MakesLineFeedsFullLineBreaksUnlessThePatternMindsThem) {
  EXPECT_EQ(Replace(u"a,b\r\nc\nd\r\r\n", u",", u"\n"), u"a\r\nb\r\nc\r\nd\r\r\n");
  EXPECT_EQ(Replace(u"a\r\nb\nc", u"a\\r\\n", u"\n"), u"\nb\nc");
  EXPECT_EQ(Replace(u"a\r\nb\nc", u"\\w\\r\\n", u"<\\1>"), u"<a\r\n>b\nc");
}

}  // namespace
}  // namespace scrivanta
