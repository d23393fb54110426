#include <algorithm>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "fuzz/ReferenceRegExp.h"
#include "fuzz/RunFuzz.h"
#include "regexp/RegExp.h"
#include "regexp/RegExpErrors.h"
#include "regexp/RegExpReplace.h"
#include "regexp/RegExpSyntax.h"
#include "text/Encoding.h"
#include "text/ExplainedError.h"

namespace scrivanta {
namespace {

constexpr std::size_t kLongestPattern = 60;
constexpr std::u16string_view kSubject = u"abAB a1_\r\n\r汉b字\tab\n01aa";

// The known differences between engine and dialect: a group in a look-ahead in a repetition, and rounds that match
// nothing although they are required.
bool IsKnownToDiffer(const RegExpTree& tree) {
  const auto isGroup = [](const RegExpNode& node) { return node.kind == RegExpNodeKind::kGroup; };
  const auto isLookAhead = [&](const RegExpNode& node) {
    return node.kind == RegExpNodeKind::kLookAhead && AnyNode(node, isGroup);
  };
  return AnyNode(tree.root, [&](const RegExpNode& node) {
    return node.kind == RegExpNodeKind::kRepeat &&
           (AnyNode(node, isLookAhead) || (node.least > 0 && CanMatchNothing(node.children.front())));
  });
}

// Any pattern either gives an error that lies in it, or finds what the reference finds.
void CheckPattern(std::u16string_view pattern, RegExpOptions options) {
  NoProgress progress;
  std::optional<RegExpTree> tree;
  std::unique_ptr<RegExp> regExp;
  try {
    tree = ParseRegExp(pattern);
    regExp = BuiltInRegExpEngine().Compile(pattern, options);
  } catch (const RegExpSyntaxError& error) {
    EXPECT_LE(error.position(), pattern.size());
    EXPECT_TRUE(!tree || error.fault() == RegExpFault::kTooLarge);
    return;
  }
  std::optional<ReferenceRegExp::Match> found;
  try {
    regExp->Scan(
        kSubject, 0,
        [&found](const RegExpMatch& match) {
          found = {match.start, match.value.size(), match.groups};
          return false;
        },
        progress);
  } catch (const RegExpTooComplex&) {
    return;
  }
  if (IsKnownToDiffer(*tree)) {
    return;
  }
  try {
    const auto expected = ReferenceRegExp(*tree, options).Find(kSubject);
    const bool isPassedOver = expected && expected->length == 0 && expected->start == kSubject.find(u'\n');
    EXPECT_TRUE(isPassedOver || found == expected);
  } catch (const ReferenceRegExp::TooManySteps&) {
    SUCCEED();
  }
}

void FuzzPattern(std::string_view bytes) {
  const std::u16string pattern = Decode(Encoding::kUtf8, bytes.substr(0, kLongestPattern));
  CheckPattern(pattern, {});
  CheckPattern(pattern, {.ignoreCase = true, .multiLine = true});
}

// Where a pattern lets the lines be searched apart, they give together what the whole text gives.
void CheckPieces(std::u16string_view pattern, std::u16string_view replacement) {
  NoProgress progress;
  const RegExpReplaceOptions options{.keepsLineFeeds = true};
  TextReplacer pieces(BuiltInRegExpEngine(), pattern, replacement, options);
  if (!pieces.StaysInLine()) {
    return;
  }
  TextReplacer whole(BuiltInRegExpEngine(), pattern, replacement, options);
  std::u16string joined;
  for (std::u16string_view rest = kSubject; !rest.empty();) {
    const std::size_t end = std::min(rest.find(u'\n') + 1, rest.size());
    const std::size_t length = end == 0 ? rest.size() : end;
    joined += pieces.Replace(rest.substr(0, length), progress, length == rest.size());
    rest.remove_prefix(length);
  }
  const bool isSame = joined == whole.Replace(kSubject, progress);
  EXPECT_TRUE(isSame);
  EXPECT_EQ(pieces.count(), whole.count());
}

// Pattern and replacement, separated by a line feed.
void FuzzReplacement(std::string_view bytes) {
  NoProgress progress;
  const std::u16string text = Decode(Encoding::kUtf8, bytes.substr(0, kLongestPattern));
  const std::size_t lineFeed = std::min(text.find(u'\n'), text.size());
  try {
    std::size_t count = 0;
    const std::u16string result =
        ReplaceInText(BuiltInRegExpEngine(), kSubject, text.substr(0, lineFeed),
                      text.substr(std::min(lineFeed + 1, text.size())), {.keepsLineFeeds = true}, progress, &count);
    EXPECT_TRUE(count > 0 || result == kSubject);
    CheckPieces(text.substr(0, lineFeed), text.substr(std::min(lineFeed + 1, text.size())));
  } catch (const ExplainedError& error) {
    EXPECT_FALSE(error.chinese().empty());
  }
}

constexpr std::string_view kPatterns[] = {
    "",
    "^((?!b|\xE5\xAD\x97).)*?$",
    "[a-su-zA-SU-Z]+|[\\d]+",
    "(a+)+[bc]",
    "(?:(a)|(b)|1)*\\1\\2",
    "(a*)*?b{1,2}(?=(\\w)\\2)",
    "[\\w\\u4e00-\\u9fa5]{2,}\\b",
    "(?:a|(b)){2,3}?[^\\s\\x41-\\x5a]",
};
constexpr std::string_view kTokens[] = {
    "(",        ")",       "(?:", "(?=",     "(?!",   "(?<",          "[",         "]",      "[^",   "|",
    "*",        "+",       "?",   "??",      "*?",    "{2}",          "{0,1}",     "{1,}?",  "{,",   "^",
    "$",        ".",       "\\b", "\\B",     "\\",    "\\1",          "\\2",       "\\12",   "\\d",  "\\W",
    "\\s",      "\\0",     "-",   "\\u0061", "\\x62", "\\cA",         "a",         "b",      "(a)?", "(b)*",
    "(?:a|b)*", "(?:|a)+", "\\Q", "\\K",     "(?",    "\xE6\xB1\x89", "(*ACCEPT)", "\\p{L}",
};

TEST(Fuzz, Pattern) {
  RunFuzz(FuzzPattern, kPatterns, kTokens);
}

TEST(Fuzz, Replacement) {
  static constexpr std::string_view kInputs[] = {
      "(a)(b)?\n$1\\2$&$$$`$'", "a\n$0$10$",          "[a-\n\\1",   "\\r\\n\n\n", "^.*?$\n<$&>",
      "\\b\\w*|$\n-",           "(?=a|$)[^\n]?\n\\1", "(?!b).?\n|",
  };
  static constexpr std::string_view kReplacementTokens[] = {"$",  "\\1", "$1", "$99", "$&", "$`",
                                                            "$'", "\n",  "(",  ")",   "a"};
  RunFuzz(FuzzReplacement, kInputs, kReplacementTokens);
}

}  // namespace
}  // namespace scrivanta
