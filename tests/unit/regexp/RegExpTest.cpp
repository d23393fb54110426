// The dialect, construct by construct, in the order of docs/REGEXP.md.
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "regexp/RegExp.h"
#include "regexp/RegExpErrors.h"

namespace scrivanta {
namespace {

using Values = std::vector<std::u16string>;

struct Found {
  std::size_t start;
  std::u16string value;
  std::vector<std::optional<std::u16string>> groups;
};

std::vector<Found> FindAll(std::u16string_view pattern, std::u16string_view text, RegExpOptions options = {}) {
  NoProgress progress;
  std::vector<Found> found;
  BuiltInRegExpEngine()
      .Compile(pattern, options)
      ->Scan(
          text, 0,
          [&](const RegExpMatch& match) {
            found.push_back({match.start, std::u16string(match.value), {match.groups.begin(), match.groups.end()}});
            return true;
          },
          progress);
  return found;
}

std::string Printable(std::u16string_view text) {
  std::string result;
  for (const char16_t c : text) {
    if (c >= 32 && c < 127) {
      result += static_cast<char>(c);
    } else {
      result += "<" + std::to_string(c) + ">";
    }
  }
  return result;
}

struct Case {
  std::u16string pattern;
  std::u16string text;
  Values matches;
  RegExpOptions options = {};
};

void Check(const std::vector<Case>& cases) {
  for (const Case& c : cases) {
    SCOPED_TRACE(Printable(c.pattern) + " on " + Printable(c.text));
    Values values;
    for (const Found& found : FindAll(c.pattern, c.text, c.options)) {
      values.push_back(found.value);
    }
    EXPECT_EQ(values, c.matches);
  }
}

constexpr RegExpOptions kIgnoreCase{.ignoreCase = true};
constexpr RegExpOptions kMultiLine{.multiLine = true};

TEST(RegExpDialect, SingleCharacters) {
  Check({
      {u"a", u"banana", {u"a", u"a", u"a"}},
      {u".", u"a\r\n中", {u"a", u"\r", u"中"}},
      {u"]", u"a]", {u"]"}},
      {u"}{,", u"a}{,", {u"}{,"}},
      {u"-/ #", u"-/ #", {u"-/ #"}},
      {std::u16string(u"\0", 1), std::u16string(u"a\0b", 3), {std::u16string(u"\0", 1)}},
      // A character beyond the first plane is two characters, and each of them can be found.
      {u".", u"\xD83D\xDE00", {u"\xD83D", u"\xDE00"}},
      {u"\\uDE00", u"\xD83D\xDE00", {u"\xDE00"}},
      {u"\xD83D", u"\xD83Dx", {u"\xD83D"}},
  });
}

TEST(RegExpDialect, Escapes) {
  Check({
      {u"\\t\\v\\f\\r\\n", u"\t\v\f\r\n", {u"\t\v\f\r\n"}},
      {u"\\x41\\u0042\\103", u"ABC", {u"ABC"}},
      {u"\\x4g", u"x4g", {u"x4g"}},
      {u"\\u12g4", u"u12g4", {u"u12g4"}},
      {u"\\u4e2d", u"中", {u"中"}},
      {u"\\0", std::u16string(u"a\0", 2), {std::u16string(u"\0", 1)}},
      {u"\\12", u"\n", {u"\n"}},
      {u"\\400", u" 0", {u" 0"}},
      {u"\\8\\9", u"89", {u"89"}},
      {u"\\cM\\cj", u"\r\n", {u"\r\n"}},
      {u"\\c1", u"c1", {u"c1"}},
      {u"\\/\\\\\\.\\*\\+\\?\\|\\(\\)\\[\\]\\{\\}", u"/\\.*+?|()[]{}", {u"/\\.*+?|()[]{}"}},
      {u"\\<a\\>", u"<a>", {u"<a>"}},
      // Letters that mean something to other engines stand for themselves.
      {u"\\h\\A\\Q\\R\\p\\K\\z\\G\\X\\E\\N\\e\\a\\o\\g\\k", u"hAQRpKzGXENeaogk", {u"hAQRpKzGXENeaogk"}},
  });
}

TEST(RegExpDialect, Classes) {
  Check({
      {u"[xyz]", u"axby", {u"x", u"y"}},
      {u"[^xyz]", u"xay\n", {u"a", u"\n"}},
      {u"[a-c\\d]", u"d1c", {u"1", u"c"}},
      {u"[\\b]", u"a\b", {u"\b"}},
      {u"[\\1]", u"1\x01", {u"\x01"}},
      {u"[]", u"a]", {}},
      {u"[^]", u"\r\n", {u"\r", u"\n"}},
      {u"[a-]", u"a-b", {u"a", u"-"}},
      {u"[-a]", u"a-b", {u"a", u"-"}},
      {u"[a-\\d]", u"a-5b", {u"a", u"-", u"5"}},
      {u"[\\d-z]", u"5-zb", {u"5", u"-", u"z"}},
      {u"[.*+?(){}|^$]", u"a^$", {u"^", u"$"}},
      {u"[\\]\\\\]", u"\\]", {u"\\", u"]"}},
      {u"[[:alpha:]]", u":]a]", {u":]", u"a]"}},
      {u"[\\u4e00-\\u9fa5]+", u"a中文b", {u"中文"}},
      {u"[\\w\\S]+", u"ab 中c", {u"ab", u"中c"}},
      {u"[^\\W\\d]", u"1a中", {u"a"}},
      {u"\\d", u"5٣", {u"5"}},
      {u"\\D", u"5a", {u"a"}},
      {u"\\w+", u"a_1-é中", {u"a_1"}},
      {u"\\W", u"a中", {u"中"}},
      {u"\\s", u"a \t\r\n\v\f\xA0\x3000", {u" ", u"\t", u"\r", u"\n", u"\v", u"\f"}},
      {u"\\S+", u"a\xA0\x3000 b", {u"a\xA0\x3000", u"b"}},
  });
}

TEST(RegExpDialect, Places) {
  Check({
      {u"^", u"a\nb", {u""}},
      {u"a$", u"a\na", {u"a"}},
      {u"a$", u"a\n", {}},
      {u"^.", u"a\rb\nc\r\nd", {u"a", u"b", u"c", u"d"}, {.multiLine = true}},
      {u".$", u"a\rb\nc\r\nd", {u"a", u"b", u"c", u"\r", u"d"}, {.multiLine = true}},
      {u"^.*?$", u"ab\r\n\r\ncd", {u"ab", u"", u"cd"}, kMultiLine},  // a line break is one place
      {u"^.*", u"ab\r\ncd", {u"ab\r", u"cd"}, kMultiLine},
      {u"a\\b", u"a中ab", {u"a"}},
      {u"\\Bb", u"ab b", {u"b"}},
      {u"\\b", u"a b", {u"", u"", u"", u""}},
  });
  EXPECT_EQ(FindAll(u"^", u"a\r\nb\rc\n", kMultiLine).size(), 4U);
}

TEST(RegExpDialect, Repetition) {
  Check({
      {u"ab*", u"abba", {u"abb", u"a"}},
      {u"ab+", u"abbbbcaxcasd", {u"abbbb"}},
      {u"ab+?", u"abbbbcaxcasd", {u"ab"}},
      {u"ab?", u"abba", {u"ab", u"a"}},
      {u"ab??", u"ab", {u"a"}},
      {u"a{2}", u"aaaaa", {u"aa", u"aa"}},
      {u"a{2,}", u"aaaaa", {u"aaaaa"}},
      {u"a{2,3}?", u"aaaaa", {u"aa", u"aa"}},
      {u"a{0}b", u"ab", {u"b"}},
      {u"a{,2}", u"aaa{,2}", {u"a{,2}"}},
      {u"a{", u"a{", {u"a{"}},
      {u"a{1", u"a{1", {u"a{1"}},
      {u"a{1,x}", u"a{1,x}", {u"a{1,x}"}},
      {u"{", u"{", {u"{"}},
      {u"a.*c", u"abcaxcasd", {u"abcaxc"}},
      {u"a.*?c", u"abcaxcasd", {u"abc", u"axc"}},
      {u"x*", u"axb", {u"", u"x", u"", u""}},
      {u"(?:ab){2}", u"ababab", {u"abab"}},
      {u"(?=a)*b", u"ab", {u"b"}},
      // A round that matches nothing does not count where none is required.
      {u"(?:|a)*", u"aa", {u"aa", u""}},
      {u"(?:a{0,1}?)*b", u"aab", {u"aab"}},
      {u"(?:a*?)*?b", u"aab", {u"aab"}},
      {u"(?:a*)+", u"aab", {u"aa", u"", u""}},
  });
}

TEST(RegExpDialect, Alternatives) {
  Check({
      {u"a|ab", u"ab", {u"a"}},
      {u"ab|a|", u"aab", {u"a", u"ab", u""}},
      {u"z|food", u"food", {u"food"}},
      {u"(?:z|f)ood", u"zood food", {u"zood", u"food"}},
  });
}

TEST(RegExpDialect, LookAhead) {
  Check({
      {u"a(?=b)", u"abac", {u"a"}},
      {u"a(?!b)", u"abac", {u"a"}},
      {u"^((?!横向页|abc).)*?$", u"xx\r\n横向页\r\nxabc\r\nyy", {u"xx", u"yy"}, kMultiLine},
      {u"(?=(a+))a*b\\1", u"baaabac", {u"aba"}},
      {u"(?!(a))b\\1", u"b", {u"b"}},
  });
}

TEST(RegExpDialect, IgnoreCase) {
  Check({
      {u"Ab", u"aB AB", {u"aB", u"AB"}, kIgnoreCase},
      {u"é", u"ÉÉ", {u"É", u"É"}, kIgnoreCase},
      {u"[à-ï]ж", u"ÉЖ", {u"ÉЖ"}, kIgnoreCase},
      {u"[^é]", u"ÉéE", {u"E"}, kIgnoreCase},
      {u"Ａ", u"ａ", {u"ａ"}, kIgnoreCase},
      {u"[\\u0041]", u"a", {u"a"}, kIgnoreCase},
      {u"(a)\\1", u"aA", {u"aA"}, kIgnoreCase},
      // Letters beyond ASCII are no other case of ASCII letters.
      {u"[ks]é|[^k]É", u"KéſéséSÉ\x212A\xE9", {u"Ké", u"ſé", u"sé", u"SÉ", u"\x212A\xE9"}, kIgnoreCase},
      {u"ké|sé", u"\x212A\xE9ſéKÉ", {u"KÉ"}, kIgnoreCase},
      {u"[\\u017f]é", u"séſÉ", {u"ſÉ"}, kIgnoreCase},
      // What \w and its like mean does not depend on the letters beside them.
      {u"\\wé|\\W\\bé", u"aé中é-é", {u"aé"}, kIgnoreCase},
      {u"é\\b.", u"éa", {u"éa"}, kIgnoreCase},
      {u"\\Bé\\B", u"é", {u"é"}, kIgnoreCase},
      {u"é[\\w]", u"ÉzÉ中", {u"Éz"}, kIgnoreCase},
      {u"é\\d\\s\\S\\D", u"É5 x中", {u"É5 x中"}, kIgnoreCase},
  });
}

TEST(RegExpDialect, BackReferences) {
  Check({
      {u"(a)(b)\\2\\1", u"abba", {u"abba"}},
      {u"(a)\\10", u"aa0", {u"aa0"}},
      {u"(a)|b\\1", u"b", {u"b"}},
      {u"\\1(a)", u"aa", {u"a", u"a"}},
      {u"(a\\1)+", u"aaa", {u"aaa"}},
      {u"\\2(a)", std::u16string(u"\x02") + u"a", {std::u16string(u"\x02") + u"a"}},
      // Every round begins with the groups inside it unset.
      {u"(?:(a)|b\\1)+", u"aba", {u"aba"}},
      {u"(?:(a)|(b)\\1)+c", u"abbc", {u"abbc"}},
      {u"(?:(a)|b)*\\1c", u"abc", {u"abc"}},
      {u"(?:(a)|b)*\\1c", u"baac", {u"baac"}},
  });
}

TEST(RegExpDialect, Groups) {
  struct GroupCase {
    std::u16string pattern;
    std::u16string text;
    std::vector<std::optional<std::u16string>> groups;  // of the first match
  };
  const GroupCase cases[] = {
      {u"(a)(?:b)(c)?", u"ab", {u"a", std::nullopt}},
      {u"(a)|(b)", u"b", {std::nullopt, u"b"}},
      {u"((a)|b)*", u"ab", {u"b", std::nullopt}},
      {u"(z)((a+)?(b+)?(c))*", u"zaacbbbcac", {u"z", u"ac", u"a", std::nullopt, u"c"}},
      {u"(?:(?:(a)|b)*c)*", u"acbc", {std::nullopt}},
      {u"(?:(?:(a)|b)*c)*", u"acbac", {u"a"}},
      {u"(?:(?:(a)c)*b)*", u"acbb", {std::nullopt}},
      {u"(a*)*", u"b", {std::nullopt}},
      {u"(a*)*", u"aab", {u"aa"}},
      {u"(a*)+", u"b", {u""}},
      {u"(a*)+", u"aab", {u"aa"}},
      {u"(a*)?", u"b", {std::nullopt}},
      {u"(?=(a+))", u"baaab", {u"aaa"}},
      {u"(?!(b))a", u"a", {std::nullopt}},
      {u"(?:(a)|b){2,3}", u"aab", {std::nullopt}},
      {u"(\\w+)@(\\w+)\\.com", u"user@site.com", {u"user", u"site"}},
  };
  for (const GroupCase& c : cases) {
    SCOPED_TRACE(Printable(c.pattern) + " on " + Printable(c.text));
    const auto found = FindAll(c.pattern, c.text);
    ASSERT_FALSE(found.empty());
    EXPECT_EQ(found.front().groups, c.groups);
  }
}

TEST(RegExpDialect, RefusesWhatItDoesNotHave) {
  struct FaultCase {
    std::u16string pattern;
    RegExpFault fault;
    std::size_t position;
  };
  const FaultCase cases[] = {
      {u"a(?<=b)", RegExpFault::kUnknownGroup, 2},
      {u"(?<name>a)", RegExpFault::kUnknownGroup, 1},
      {u"(?>a)", RegExpFault::kUnknownGroup, 1},
      {u"(?i)a", RegExpFault::kUnknownGroup, 1},
      {u"(?#x)", RegExpFault::kUnknownGroup, 1},
      {u"(?", RegExpFault::kUnknownGroup, 1},
      {u"(*ACCEPT)", RegExpFault::kNothingToRepeat, 1},
      {u"a*+", RegExpFault::kNothingToRepeat, 2},
      {u"a**", RegExpFault::kNothingToRepeat, 2},
      {u"a{2}{3}", RegExpFault::kNothingToRepeat, 4},
      {u"^*", RegExpFault::kNothingToRepeat, 1},
      {u"\\b+", RegExpFault::kNothingToRepeat, 2},
      {u"*a", RegExpFault::kNothingToRepeat, 0},
      {u"a|?", RegExpFault::kNothingToRepeat, 2},
      {u"{2}", RegExpFault::kNothingToRepeat, 0},
      {u"a(b(c)", RegExpFault::kUnclosedGroup, 1},
      {u"ab)c", RegExpFault::kUnopenedGroup, 2},
      {u"a[bc", RegExpFault::kUnclosedClass, 1},
      {u"[a\\]", RegExpFault::kUnclosedClass, 0},
      {u"a[z-a]", RegExpFault::kReversedRange, 2},
      {u"a{3,2}", RegExpFault::kReversedCount, 1},
      {u"a{65536}", RegExpFault::kCountTooLarge, 1},
      {u"a{1,99999999999}", RegExpFault::kCountTooLarge, 1},
      {u"ab\\", RegExpFault::kBackslashAtEnd, 2},
      {u"[a\\", RegExpFault::kBackslashAtEnd, 2},
      {std::u16string(101, u'('), RegExpFault::kNestedTooDeep, 100},
  };
  for (const FaultCase& c : cases) {
    SCOPED_TRACE(Printable(c.pattern));
    try {
      BuiltInRegExpEngine().Compile(c.pattern, {});
      FAIL() << "accepted";
    } catch (const RegExpSyntaxError& error) {
      EXPECT_EQ(error.fault(), c.fault);
      EXPECT_EQ(error.position(), c.position);
    }
  }
}

TEST(RegExpErrors, SayWhatAndWhereInBothLanguages) {
  const RegExpSyntaxError error(RegExpFault::kReversedRange, 4);
  EXPECT_STREQ(error.what(), "the pattern cannot be used: character 5: the range runs backwards");
  EXPECT_EQ(error.chinese(), u"正则表达式有误：第5个字符：字符范围的起点大于终点。");
  const RegExpTooComplex complex(9);
  EXPECT_STREQ(complex.what(), "the pattern is too complex for this text: the search was given up at character 10");
}

TEST(RegExpScan, BeginsWhereItIsToldAndSeesWhatStandsBefore) {
  NoProgress progress;
  std::vector<std::size_t> starts;
  BuiltInRegExpEngine()
      .Compile(u"\\ba|^b", {.multiLine = true})
      ->Scan(
          u"b a\nba a", 1,
          [&](const RegExpMatch& match) {
            starts.push_back(match.start);
            return starts.size() < 2;
          },
          progress);
  EXPECT_EQ(starts, (std::vector<std::size_t>{2, 4}));
}

TEST(RegExpScan, GivesUpARunaway) {
  EXPECT_THROW(FindAll(u"(a+)+[bc]", std::u16string(40, u'a')), RegExpTooComplex);
  try {
    FindAll(u"b(a+)+[bc]", u"xxb" + std::u16string(40, u'a'));
    FAIL();
  } catch (const RegExpTooComplex& error) {
    EXPECT_EQ(error.position(), 2U);
  }
}

TEST(RegExpScan, SpansAMegabyteByOneMatch) {
  constexpr std::size_t kLength = 1'000'000;
  const std::u16string text = std::u16string(kLength, u'a') + u"\nb";
  for (const std::u16string pattern : {u"a+", u"(a|x)+", u"((a)|(x))*", u"(?:a|[^b])+?b", u"[\\s\\S]*?b", u"[\\s\\S]*b",
                                       u"(?:(a)|(x\\1))+", u"(?:(?=(a))a)*", u"(a*)*\\nb"}) {
    SCOPED_TRACE(Printable(pattern));
    const auto found = FindAll(pattern, text);
    ASSERT_FALSE(found.empty());
    EXPECT_GE(found.front().value.size(), kLength);
  }
}

class InterruptAfter final : public Progress {
 public:
  explicit InterruptAfter(int reports) : left_(reports) {}
  void Report(std::uint64_t, std::uint64_t) override {
    if (--left_ < 0) {
      throw Interrupted();
    }
  }

 private:
  int left_;
};

TEST(RegExpScan, CanBeInterruptedWithinOneCallAndBetweenMatches) {
  struct Search {
    std::u16string pattern;
    std::u16string text;
  };
  const Search searches[] = {
      {u"(a+)+[bc]", std::u16string(40, u'a')},
      {u"a[^x]*[^y]*[yx]", std::u16string(300'000, u'a')},
      {u"a", std::u16string(1'000'000, u'a')},
      {u"", std::u16string(1'000'000, u'a')},
  };
  for (const Search& search : searches) {
    SCOPED_TRACE(Printable(search.pattern));
    const auto regExp = BuiltInRegExpEngine().Compile(search.pattern, {});
    InterruptAfter progress(3);
    EXPECT_THROW(regExp->Scan(
                     search.text, 0, [](const RegExpMatch&) { return true; }, progress),
                 Interrupted);
    // The object can be used again.
    NoProgress noProgress;
    EXPECT_TRUE(regExp->Matches(u"aaaby", noProgress));
  }
}

}  // namespace
}  // namespace scrivanta
