// A pattern of the dialect as a tree. Knows the dialect and no engine.
#pragma once

#include <algorithm>
#include <cstddef>
#include <limits>
#include <string_view>
#include <vector>

namespace scrivanta {

struct CharacterRange {
  char16_t first = 0;
  char16_t last = 0;
  bool ofEscape = false;  // one of the ranges that \W and its like stand for
};

enum class RegExpNodeKind {
  kSequence,           // of its children, perhaps none
  kAlternatives,       // one of its children
  kLiteral,            // the character `character`
  kAnyButLineFeed,     // .
  kClassEscape,        // \d \D \w \W \s \S: the letter in `character`
  kClass,              // one of `ranges`, or none of them when `negated`
  kStart,              // ^
  kEnd,                // $
  kWordEdge,           // \b
  kNoWordEdge,         // \B
  kGroup,              // ( ), its number in `number`, one child
  kPlainGroup,         // (?: ), one child
  kLookAhead,          // (?= ), one child
  kNegativeLookAhead,  // (?! ), one child
  kBackReference,      // \1 and its like, the group in `number`
  kRepeat,             // one child, `least` to `most` times
};

struct RegExpNode {
  static constexpr unsigned kUnlimited = std::numeric_limits<unsigned>::max();

  RegExpNodeKind kind = RegExpNodeKind::kSequence;
  std::size_t position = 0;  // where it stands in the pattern, in characters from 0
  char16_t character = 0;
  bool negated = false;
  std::vector<CharacterRange> ranges;
  unsigned number = 0;  // groups count from 1
  unsigned least = 0;
  unsigned most = 0;
  bool lazy = false;
  std::vector<RegExpNode> children;
};

struct RegExpTree {
  RegExpNode root;
  unsigned groupCount = 0;
};

// The characters of \d, \w or \s (the letter in lower case), in ascending order.
std::vector<CharacterRange> ClassEscapeRanges(char16_t lowerCaseLetter);

// Whether the test holds for the node or for one anywhere below it.
bool AnyNode(const RegExpNode& node, const auto& test) {
  return test(node) || std::any_of(node.children.begin(), node.children.end(),
                                   [&test](const RegExpNode& child) { return AnyNode(child, test); });
}

// False when every match of the node takes a character at least.
bool CanMatchNothing(const RegExpNode& node);

// Throws RegExpSyntaxError. The tree is never deeper than a fixed limit, so it can be walked by recursion.
RegExpTree ParseRegExp(std::u16string_view pattern);

}  // namespace scrivanta
