#include "regexp/PcrePattern.h"

#include <algorithm>
#include <bitset>
#include <set>
#include <string_view>

#include "regexp/LetterCase.h"
#include "text/DecimalText.h"

namespace scrivanta {

namespace {

constexpr char16_t kLastAscii = 0x7F;
// The two characters beyond ASCII that the engine takes for another case of an ASCII letter (s and k). The dialect does
// not.
constexpr char16_t kLongS = 0x017F;
constexpr char16_t kKelvinSign = 0x212A;

bool IsAsciiLetter(char16_t c) {
  return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z');
}

bool HoldsCasedCharacter(const RegExpNode& node) {
  if (node.kind == RegExpNodeKind::kLiteral) {
    return MayHaveCase(node.character, node.character);
  }
  return node.kind == RegExpNodeKind::kClass &&
         std::any_of(node.ranges.begin(), node.ranges.end(), [](const CharacterRange& range) {
           return !range.ofEscape && MayHaveCase(range.first, range.last);
         });
}

bool TakesLineFeed(const RegExpNode& node) {
  switch (node.kind) {
    case RegExpNodeKind::kLiteral:
      return node.character == u'\n';
    case RegExpNodeKind::kClassEscape:
      return node.character == u's' || node.character == u'W' || node.character == u'D';
    case RegExpNodeKind::kClass:
      return node.negated == std::none_of(node.ranges.begin(), node.ranges.end(), [](const CharacterRange& range) {
               return range.first <= u'\n' && range.last >= u'\n';
             });
    default:
      return false;
  }
}

bool StaysInLine(const RegExpNode& root, RegExpOptions options) {
  return !AnyNode(root, [options](const RegExpNode& node) {
    const bool isEndOfText =
        !options.multiLine && (node.kind == RegExpNodeKind::kStart || node.kind == RegExpNodeKind::kEnd);
    return isEndOfText || TakesLineFeed(node);
  });
}

// Whether it makes a difference that a round which matches nothing is refused.
bool MindsEmptyRounds(const RegExpNode& node) {
  return node.kind == RegExpNodeKind::kGroup || node.kind == RegExpNodeKind::kAlternatives ||
         node.kind == RegExpNodeKind::kLookAhead || (node.kind == RegExpNodeKind::kRepeat && node.lazy);
}

// The groups in a node, and among them those that every match of the node sets.
struct GroupsInside {
  std::set<unsigned> all;
  std::set<unsigned> always;
};

GroupsInside FindGroups(const RegExpNode& node) {
  GroupsInside found;
  for (const RegExpNode& child : node.children) {
    const GroupsInside inside = FindGroups(child);
    found.all.insert(inside.all.begin(), inside.all.end());
    found.always.insert(inside.always.begin(), inside.always.end());
  }
  switch (node.kind) {
    case RegExpNodeKind::kGroup:
      found.all.insert(node.number);
      found.always.insert(node.number);
      break;
    case RegExpNodeKind::kAlternatives:
    case RegExpNodeKind::kNegativeLookAhead:
      found.always.clear();
      break;
    case RegExpNodeKind::kRepeat:
      if (node.least == 0) {
        found.always.clear();
      }
      break;
    default:
      break;
  }
  return found;
}

class Translator {
 public:
  Translator(const RegExpTree& tree, RegExpOptions options) : options_(options) {
    out_.groups.resize(tree.groupCount);
    out_.needsUnicodeCase = options.ignoreCase && AnyNode(tree.root, HoldsCasedCharacter);
    out_.staysInLine = StaysInLine(tree.root, options);
  }

  PcrePattern Translate(const RegExpTree& tree) {
    // A callout at every place where a match may begin, so that a search can be watched.
    Put(u"(?C0)");
    if (tree.root.kind == RegExpNodeKind::kAlternatives) {
      Put(u"(?:");
      Emit(tree.root);
      Put(u")");
    } else {
      Emit(tree.root);
    }
    return std::move(out_);
  }

 private:
  struct OpenLoop {
    unsigned marker;
    std::set<unsigned> forgetful;  // the groups that a round may leave unset
  };

  void Put(std::u16string_view text) {
    out_.text.append(text);
    out_.sources.resize(out_.text.size(), source_);
  }
  void PutNumber(unsigned number) { Put(DecimalText(number)); }
  // One character that stands for itself, inside a class and outside.
  void PutCharacter(char16_t c) {
    if ((c >= u'0' && c <= u'9') || IsAsciiLetter(c) || c > 0x9F) {
      Put({&c, 1});
      return;
    }
    constexpr std::u16string_view kHexDigits = u"0123456789abcdef";
    const char16_t escape[] = {u'\\', u'x', u'{', kHexDigits[c >> 4], kHexDigits[c & 15], u'}'};
    Put({escape, std::size(escape)});
  }
  void PutRange(char16_t first, char16_t last) {
    PutCharacter(first);
    if (last > first) {
      Put(u"-");
      PutCharacter(last);
    }
  }
  void PutRanges(const std::vector<CharacterRange>& ranges) {
    for (const CharacterRange& range : ranges) {
      PutRange(range.first, range.last);
    }
  }
  unsigned PutMarker() {
    Put(u"()");
    return ++engineGroups_;
  }
  void PutCheck(const PcreCheck& check) {
    Put(u"(?C{");
    PutNumber(static_cast<unsigned>(out_.checks.size()));
    Put(u"})");
    out_.checks.push_back(check);
  }

  // Every kind but sequence and alternatives comes out as one item that a repetition sign can follow.
  void Emit(const RegExpNode& node) {
    source_ = node.position;
    switch (node.kind) {
      case RegExpNodeKind::kSequence:
        for (const RegExpNode& child : node.children) {
          Emit(child);
        }
        break;
      case RegExpNodeKind::kAlternatives:
        EmitAlternatives(node);
        break;
      case RegExpNodeKind::kLiteral:
        EmitLiteral(node.character);
        break;
      case RegExpNodeKind::kAnyButLineFeed:
        Put(u".");
        break;
      case RegExpNodeKind::kClassEscape:
        EmitClassEscape(node.character);
        break;
      case RegExpNodeKind::kClass:
        EmitClass(node);
        break;
      case RegExpNodeKind::kStart:
        Put(options_.multiLine ? u"(?<![^\\r\\n])" : u"^");
        break;
      case RegExpNodeKind::kEnd:
        Put(options_.multiLine ? u"(?![^\\r\\n])" : u"$");
        break;
      case RegExpNodeKind::kWordEdge:
      case RegExpNodeKind::kNoWordEdge:
        EmitWordEdge(node.kind == RegExpNodeKind::kWordEdge);
        break;
      case RegExpNodeKind::kGroup:
        EmitGroup(node);
        break;
      case RegExpNodeKind::kPlainGroup:
        EmitWrapped(u"(?:", node.children.front(), u")");
        break;
      case RegExpNodeKind::kLookAhead:
        EmitWrapped(u"(?:(?=", node.children.front(), u"))");
        break;
      case RegExpNodeKind::kNegativeLookAhead:
        EmitWrapped(u"(?:(?!", node.children.front(), u"))");
        break;
      case RegExpNodeKind::kBackReference:
        EmitBackReference(node.number);
        break;
      case RegExpNodeKind::kRepeat:
        EmitRepeat(node);
        break;
    }
  }

  void EmitWrapped(std::u16string_view before, const RegExpNode& node, std::u16string_view after) {
    Put(before);
    Emit(node);
    Put(after);
  }

  void EmitAlternatives(const RegExpNode& node) {
    bool first = true;
    for (const RegExpNode& child : node.children) {
      if (!first) {
        Put(u"|");
      }
      first = false;
      Emit(child);
    }
  }

  void EmitLiteral(char16_t c) {
    const bool isAsciiWithOtherCase = c == u's' || c == u'S' || c == u'k' || c == u'K';
    if (!out_.needsUnicodeCase || (!isAsciiWithOtherCase && c != kLongS && c != kKelvinSign)) {
      PutCharacter(c);
      return;
    }
    Put(u"(?-i:[");
    PutCharacter(c);
    if (isAsciiWithOtherCase) {
      PutCharacter(static_cast<char16_t>(c ^ 0x20));
    }
    Put(u"])");
  }

  void EmitClassEscape(char16_t letter) {
    if (!out_.needsUnicodeCase) {
      Put(u"\\");
      Put({&letter, 1});
      return;
    }
    const bool isLower = letter >= u'a';
    Put(isLower ? u"(?-i:[" : u"(?-i:[^");
    PutRanges(ClassEscapeRanges(isLower ? letter : static_cast<char16_t>(letter | 0x20)));
    Put(u"])");
  }

  void EmitWordEdge(bool edge) {
    if (!out_.needsUnicodeCase) {
      Put(edge ? u"\\b" : u"\\B");
      return;
    }
    // With the engine's notion of case comes its notion of words, which takes Chinese characters for letters.
    Put(edge ? u"(?-i:(?<=[0-9A-Za-z_])(?![0-9A-Za-z_])|(?<![0-9A-Za-z_])(?=[0-9A-Za-z_]))"
             : u"(?-i:(?<=[0-9A-Za-z_])(?=[0-9A-Za-z_])|(?<![0-9A-Za-z_])(?![0-9A-Za-z_]))");
  }

  void EmitClass(const RegExpNode& node) {
    if (node.ranges.empty()) {
      Put(node.negated ? u"[\\x{00}-\xFFFF]" : u"[^\\x{00}-\xFFFF]");
    } else if (!out_.needsUnicodeCase) {
      Put(node.negated ? u"[^" : u"[");
      PutRanges(node.ranges);
      Put(u"]");
    } else {
      EmitCasedClass(node);
    }
  }

  // ASCII characters and the others keep to themselves, each in both their cases.
  void EmitCasedClass(const RegExpNode& node) {
    std::bitset<kLastAscii + 1> ascii;
    std::vector<CharacterRange> others;
    for (const CharacterRange& range : node.ranges) {
      for (unsigned c = range.first; c <= std::min<unsigned>(range.last, kLastAscii); ++c) {
        ascii.set(c);
        if (IsAsciiLetter(static_cast<char16_t>(c))) {
          ascii.set(c ^ 0x20);
        }
      }
      if (range.last > kLastAscii) {
        others.push_back({std::max(range.first, static_cast<char16_t>(kLastAscii + 1)), range.last});
      }
    }
    Put(node.negated ? u"(?:(?!" : u"(?:");
    if (ascii.any()) {
      Put(u"(?-i:[");
      PutAscii(ascii);
      Put(u"])");
    }
    if (!others.empty()) {
      Put(ascii.any() ? u"|" : u"");
      Put(u"(?!(?-i:[\\x{00}-\\x{7f}]))[");
      PutRanges(others);
      Put(u"]");
    }
    Put(node.negated ? u")[\\x{00}-\xFFFF])" : u")");
  }

  void PutAscii(const std::bitset<kLastAscii + 1>& set) {
    for (unsigned first = 0; first <= kLastAscii; ++first) {
      if (!set[first]) {
        continue;
      }
      unsigned last = first;
      while (last < kLastAscii && set[last + 1]) {
        ++last;
      }
      PutRange(static_cast<char16_t>(first), static_cast<char16_t>(last));
      first = last;
    }
  }

  void EmitGroup(const RegExpNode& node) {
    PcreGroup& group = out_.groups[node.number - 1];
    group.number = ++engineGroups_;
    for (const OpenLoop& loop : loops_) {
      if (loop.forgetful.contains(node.number)) {
        group.markers.push_back(loop.marker);
      }
    }
    openGroups_.insert(node.number);
    EmitWrapped(u"(", node.children.front(), u")");
    openGroups_.erase(node.number);
  }

  void EmitBackReference(unsigned number) {
    const PcreGroup& group = out_.groups[number - 1];
    // A group that has not begun yet, or has not ended, is unset in this round and refers to nothing.
    if (group.number == 0 || openGroups_.contains(number)) {
      Put(u"(?:)");
      return;
    }
    if (group.markers.empty()) {
      Put(u"\\g{");
      PutNumber(group.number);
      Put(u"}");
      return;
    }
    Put(u"(?:");
    PutCheck({PcreCheck::Kind::kFresh, number});
    Put(u"\\g{");
    PutNumber(group.number);
    Put(u"}|");
    PutCheck({PcreCheck::Kind::kStale, number});
    Put(u")");
  }

  void EmitRepeat(const RegExpNode& node) {
    const RegExpNode& body = node.children.front();
    const GroupsInside inside = FindGroups(body);
    OpenLoop loop;
    if (node.most > 1) {
      std::set_difference(inside.all.begin(), inside.all.end(), inside.always.begin(), inside.always.end(),
                          std::inserter(loop.forgetful, loop.forgetful.end()));
    }
    const bool refusesEmptyRounds =
        node.least <= 1 && node.most > node.least && CanMatchNothing(body) && AnyNode(body, MindsEmptyRounds);
    if (loop.forgetful.empty() && !refusesEmptyRounds) {
      Emit(body);
      PutRepeatSign(node);
      return;
    }
    PcreCheck check{PcreCheck::Kind::kRoundNotEmpty};
    Put(u"(?:");
    if (refusesEmptyRounds && node.least == 1) {
      check.loopMarker = PutMarker();
    }
    Put(u"(?:");
    loop.marker = PutMarker();
    check.roundMarker = loop.marker;
    loops_.push_back(std::move(loop));
    Emit(body);
    loops_.pop_back();
    if (refusesEmptyRounds) {
      PutCheck(check);
    }
    Put(u")");
    PutRepeatSign(node);
    Put(u")");
  }

  void PutRepeatSign(const RegExpNode& node) {
    source_ = node.position;
    Put(u"{");
    PutNumber(node.least);
    if (node.most != node.least) {
      Put(u",");
      if (node.most != RegExpNode::kUnlimited) {
        PutNumber(node.most);
      }
    }
    Put(node.lazy ? u"}?" : u"}");
  }

  RegExpOptions options_;
  PcrePattern out_;
  std::size_t source_ = 0;
  unsigned engineGroups_ = 0;
  std::vector<OpenLoop> loops_;
  std::set<unsigned> openGroups_;
};

}  // namespace

PcrePattern TranslateToPcre(const RegExpTree& tree, RegExpOptions options) {
  return Translator(tree, options).Translate(tree);
}

}  // namespace scrivanta
