#include "regexp/RegExpSyntax.h"

#include <optional>
#include <utility>

#include "regexp/RegExpErrors.h"
#include "text/Hexadecimal.h"
#include "text/LineText.h"

namespace scrivanta {

namespace {

// Groups within groups. Parsing, translating and compiling recurse once or a few times a level.
constexpr unsigned kDeepestNesting = 100;
// The most repetitions that the built-in engine counts.
constexpr unsigned kHighestCount = 65535;

constexpr char16_t kBackspace = 8;

bool IsOctalDigit(char16_t c) {
  return c >= u'0' && c <= u'7';
}

bool IsAsciiLetter(char16_t c) {
  return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z');
}

bool IsClassEscape(char16_t c) {
  return std::u16string_view(u"dDwWsS").find(c) != std::u16string_view::npos;
}

std::vector<CharacterRange> Complement(const std::vector<CharacterRange>& ascending) {
  std::vector<CharacterRange> rest;
  unsigned next = 0;
  for (const CharacterRange& range : ascending) {
    if (range.first > next) {
      rest.push_back({static_cast<char16_t>(next), static_cast<char16_t>(range.first - 1)});
    }
    next = range.last + 1U;
  }
  rest.push_back({static_cast<char16_t>(next), u'\xFFFF'});
  return rest;
}

class Parser {
 public:
  explicit Parser(std::u16string_view pattern) : pattern_(pattern), groupCount_(CountGroups(pattern)) {}

  RegExpTree Parse() {
    RegExpTree tree;
    tree.root = ParseAlternatives(0);
    if (!AtEnd()) {
      throw RegExpSyntaxError(RegExpFault::kUnopenedGroup, at_);
    }
    tree.groupCount = groupCount_;
    return tree;
  }

 private:
  // A back reference may stand before its group, so the number of groups must be known first.
  static unsigned CountGroups(std::u16string_view pattern) {
    unsigned count = 0;
    bool inClass = false;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
      const char16_t c = pattern[i];
      if (c == u'\\') {
        ++i;
      } else if (inClass) {
        inClass = c != u']';
      } else if (c == u'[') {
        inClass = true;
      } else if (c == u'(' && pattern.substr(i + 1, 1) != u"?") {
        ++count;
      }
    }
    return count;
  }

  bool AtEnd() const { return at_ >= pattern_.size(); }
  char16_t Peek() const { return pattern_[at_]; }
  bool Take(char16_t c) {
    if (AtEnd() || Peek() != c) {
      return false;
    }
    ++at_;
    return true;
  }
  RegExpNode NodeHere(RegExpNodeKind kind) const {
    RegExpNode node;
    node.kind = kind;
    node.position = at_;
    return node;
  }

  RegExpNode ParseAlternatives(unsigned depth) {
    RegExpNode alternatives = NodeHere(RegExpNodeKind::kAlternatives);
    do {
      alternatives.children.push_back(ParseSequence(depth));
    } while (Take(u'|'));
    if (alternatives.children.size() == 1) {
      return std::exchange(alternatives.children.front(), {});
    }
    return alternatives;
  }

  RegExpNode ParseSequence(unsigned depth) {
    RegExpNode sequence = NodeHere(RegExpNodeKind::kSequence);
    while (!AtEnd() && Peek() != u'|' && Peek() != u')') {
      sequence.children.push_back(ParseItem(depth));
    }
    return sequence;
  }

  RegExpNode ParseItem(unsigned depth) {
    switch (Peek()) {
      case u'^':
        return ParseSign(RegExpNodeKind::kStart, 1);
      case u'$':
        return ParseSign(RegExpNodeKind::kEnd, 1);
      case u'\\':
        if (pattern_.substr(at_, 2) == u"\\b") {
          return ParseSign(RegExpNodeKind::kWordEdge, 2);
        }
        if (pattern_.substr(at_, 2) == u"\\B") {
          return ParseSign(RegExpNodeKind::kNoWordEdge, 2);
        }
        break;
      default:
        break;
    }
    return ParseRepeat(ParseAtom(depth));
  }

  RegExpNode ParseSign(RegExpNodeKind kind, std::size_t length) {
    RegExpNode node = NodeHere(kind);
    at_ += length;
    return node;
  }

  RegExpNode ParseAtom(unsigned depth) {
    const char16_t c = Peek();
    switch (c) {
      case u'(':
        return ParseGroup(depth);
      case u'[':
        return ParseClass();
      case u'.':
        return ParseSign(RegExpNodeKind::kAnyButLineFeed, 1);
      case u'\\':
        return ParseEscape();
      case u'*':
      case u'+':
      case u'?':
        throw RegExpSyntaxError(RegExpFault::kNothingToRepeat, at_);
      case u'{':
        if (FindCount()) {
          throw RegExpSyntaxError(RegExpFault::kNothingToRepeat, at_);
        }
        break;
      default:
        break;
    }
    RegExpNode literal = ParseSign(RegExpNodeKind::kLiteral, 1);
    literal.character = c;
    return literal;
  }

  RegExpNode ParseGroup(unsigned depth) {
    RegExpNode group = NodeHere(RegExpNodeKind::kGroup);
    if (depth == kDeepestNesting) {
      throw RegExpSyntaxError(RegExpFault::kNestedTooDeep, at_);
    }
    ++at_;
    if (Take(u'?')) {
      if (Take(u':')) {
        group.kind = RegExpNodeKind::kPlainGroup;
      } else if (Take(u'=')) {
        group.kind = RegExpNodeKind::kLookAhead;
      } else if (Take(u'!')) {
        group.kind = RegExpNodeKind::kNegativeLookAhead;
      } else {
        throw RegExpSyntaxError(RegExpFault::kUnknownGroup, at_ - 1);
      }
    } else {
      group.number = ++groupsOpened_;
    }
    group.children.push_back(ParseAlternatives(depth + 1));
    if (!Take(u')')) {
      throw RegExpSyntaxError(RegExpFault::kUnclosedGroup, group.position);
    }
    return group;
  }

  // {n}, {n,} or {n,m} at the current place; any other brace is a character like the rest.
  struct Count {
    unsigned least = 0;
    unsigned most = 0;
    std::size_t end = 0;
  };
  std::optional<Count> FindCount() const {
    std::size_t at = at_ + 1;
    Count count;
    if (!ReadNumber(at, count.least)) {
      return std::nullopt;
    }
    count.most = count.least;
    if (at < pattern_.size() && pattern_[at] == u',') {
      ++at;
      if (!ReadNumber(at, count.most)) {
        count.most = RegExpNode::kUnlimited;
      }
    }
    if (at >= pattern_.size() || pattern_[at] != u'}') {
      return std::nullopt;
    }
    count.end = at + 1;
    return count;
  }

  bool ReadNumber(std::size_t& at, unsigned& number) const {
    const std::size_t begin = at;
    number = 0;
    while (at < pattern_.size() && IsDigit(pattern_[at])) {
      if (number <= kHighestCount) {
        number = number * 10 + (pattern_[at] - u'0');
      }
      ++at;
    }
    return at > begin;
  }

  RegExpNode ParseRepeat(RegExpNode atom) {
    if (AtEnd()) {
      return atom;
    }
    Count count;
    switch (Peek()) {
      case u'*':
        count = {0, RegExpNode::kUnlimited, at_ + 1};
        break;
      case u'+':
        count = {1, RegExpNode::kUnlimited, at_ + 1};
        break;
      case u'?':
        count = {0, 1, at_ + 1};
        break;
      case u'{':
        if (const auto found = FindCount()) {
          count = *found;
          break;
        }
        return atom;
      default:
        return atom;
    }
    RegExpNode repeat = NodeHere(RegExpNodeKind::kRepeat);
    if (count.least > kHighestCount || (count.most != RegExpNode::kUnlimited && count.most > kHighestCount)) {
      throw RegExpSyntaxError(RegExpFault::kCountTooLarge, at_);
    }
    if (count.most < count.least) {
      throw RegExpSyntaxError(RegExpFault::kReversedCount, at_);
    }
    at_ = count.end;
    repeat.least = count.least;
    repeat.most = count.most;
    repeat.lazy = Take(u'?');
    repeat.children.push_back(std::move(atom));
    return repeat;
  }

  RegExpNode ParseEscape() {
    RegExpNode node = NodeHere(RegExpNodeKind::kLiteral);
    ++at_;
    if (AtEnd()) {
      throw RegExpSyntaxError(RegExpFault::kBackslashAtEnd, node.position);
    }
    if (IsClassEscape(Peek())) {
      node.kind = RegExpNodeKind::kClassEscape;
      node.character = Peek();
      ++at_;
    } else if (const unsigned number = TakeGroupNumber()) {
      node.kind = RegExpNodeKind::kBackReference;
      node.number = number;
    } else {
      node.character = TakeEscapedCharacter();
    }
    return node;
  }

  // As many digits as still name a group of the pattern; 0 when there are none.
  unsigned TakeGroupNumber() {
    unsigned number = 0;
    while (!AtEnd() && IsDigit(Peek())) {
      const unsigned longer = number * 10 + (Peek() - u'0');
      if (longer == 0 || longer > groupCount_) {
        break;
      }
      number = longer;
      ++at_;
    }
    return number;
  }

  // The character that the text behind a backslash stands for. A letter or sign without a meaning of its own stands for
  // itself.
  char16_t TakeEscapedCharacter() {
    const char16_t c = pattern_[at_++];
    switch (c) {
      case u'f':
        return u'\f';
      case u'n':
        return u'\n';
      case u'r':
        return u'\r';
      case u't':
        return u'\t';
      case u'v':
        return u'\v';
      case u'c':
        if (!AtEnd() && IsAsciiLetter(Peek())) {
          return static_cast<char16_t>(pattern_[at_++] & 31);
        }
        return c;
      case u'x':
        return TakeHexDigits(2).value_or(c);
      case u'u':
        return TakeHexDigits(4).value_or(c);
      default:
        return IsOctalDigit(c) ? TakeOctalDigits(c) : c;
    }
  }

  std::optional<char16_t> TakeHexDigits(std::size_t count) {
    unsigned value = 0;
    for (std::size_t i = 0; i < count; ++i) {
      const int digit = at_ + i < pattern_.size() ? HexDigitValue(pattern_[at_ + i]) : -1;
      if (digit < 0) {
        return std::nullopt;
      }
      value = value * 16 + static_cast<unsigned>(digit);
    }
    at_ += count;
    return static_cast<char16_t>(value);
  }

  // Up to three octal digits, the first of them taken already, of a value up to 255.
  char16_t TakeOctalDigits(char16_t first) {
    unsigned value = first - u'0';
    for (int more = 0; more < 2 && !AtEnd() && IsOctalDigit(Peek()); ++more) {
      const unsigned longer = value * 8 + (Peek() - u'0');
      if (longer > 255) {
        break;
      }
      value = longer;
      ++at_;
    }
    return static_cast<char16_t>(value);
  }

  // One member of a class: a single character, or the ranges of an escape such as \d.
  struct Member {
    char16_t character = 0;
    std::vector<CharacterRange> ranges;  // empty for a single character
  };
  Member ParseMember() {
    if (Peek() != u'\\') {
      return {pattern_[at_++], {}};
    }
    const std::size_t backslash = at_++;
    if (AtEnd()) {
      throw RegExpSyntaxError(RegExpFault::kBackslashAtEnd, backslash);
    }
    const char16_t c = Peek();
    if (!IsClassEscape(c)) {
      if (c == u'b') {
        ++at_;
        return {kBackspace, {}};
      }
      return {TakeEscapedCharacter(), {}};
    }
    ++at_;
    const bool isLower = c >= u'a';
    auto ranges = ClassEscapeRanges(isLower ? c : static_cast<char16_t>(c - u'A' + u'a'));
    if (!isLower) {
      ranges = Complement(ranges);
    }
    for (CharacterRange& range : ranges) {
      range.ofEscape = true;
    }
    return {0, std::move(ranges)};
  }

  RegExpNode ParseClass() {
    RegExpNode node = NodeHere(RegExpNodeKind::kClass);
    ++at_;
    node.negated = Take(u'^');
    const auto add = [&node](const Member& member) {
      if (member.ranges.empty()) {
        node.ranges.push_back({member.character, member.character});
      } else {
        node.ranges.insert(node.ranges.end(), member.ranges.begin(), member.ranges.end());
      }
    };
    while (!AtEnd() && Peek() != u']') {
      const std::size_t begin = at_;
      const Member first = ParseMember();
      if (at_ + 1 >= pattern_.size() || Peek() != u'-' || pattern_[at_ + 1] == u']') {
        add(first);
        continue;
      }
      ++at_;
      const Member last = ParseMember();
      if (!first.ranges.empty() || !last.ranges.empty()) {
        // No range can begin or end with \d: the hyphen stands for itself.
        add(first);
        node.ranges.push_back({u'-', u'-'});
        add(last);
      } else if (first.character > last.character) {
        throw RegExpSyntaxError(RegExpFault::kReversedRange, begin);
      } else {
        node.ranges.push_back({first.character, last.character});
      }
    }
    if (!Take(u']')) {
      throw RegExpSyntaxError(RegExpFault::kUnclosedClass, node.position);
    }
    return node;
  }

  std::u16string_view pattern_;
  unsigned groupCount_;
  std::size_t at_ = 0;
  unsigned groupsOpened_ = 0;
};

}  // namespace

std::vector<CharacterRange> ClassEscapeRanges(char16_t lowerCaseLetter) {
  switch (lowerCaseLetter) {
    case u'd':
      return {{u'0', u'9'}};
    case u'w':
      return {{u'0', u'9'}, {u'A', u'Z'}, {u'_', u'_'}, {u'a', u'z'}};
    default:
      return {{u'\t', u'\r'}, {u' ', u' '}};
  }
}

bool CanMatchNothing(const RegExpNode& node) {
  const auto& children = node.children;
  switch (node.kind) {
    case RegExpNodeKind::kLiteral:
    case RegExpNodeKind::kAnyButLineFeed:
    case RegExpNodeKind::kClassEscape:
    case RegExpNodeKind::kClass:
      return false;
    case RegExpNodeKind::kSequence:
      return std::all_of(children.begin(), children.end(), CanMatchNothing);
    case RegExpNodeKind::kAlternatives:
      return std::any_of(children.begin(), children.end(), CanMatchNothing);
    case RegExpNodeKind::kGroup:
    case RegExpNodeKind::kPlainGroup:
      return CanMatchNothing(children.front());
    case RegExpNodeKind::kRepeat:
      return node.least == 0 || CanMatchNothing(children.front());
    default:
      return true;
  }
}

RegExpTree ParseRegExp(std::u16string_view pattern) {
  return Parser(pattern).Parse();
}

}  // namespace scrivanta
