#include "fuzz/ReferenceRegExp.h"

#include <algorithm>

namespace scrivanta {

namespace {

constexpr unsigned kMostSteps = 3000;

bool IsWordCharacter(char16_t c) {
  return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || (c >= u'0' && c <= u'9') || c == u'_';
}

bool Contains(const std::vector<CharacterRange>& ranges, char16_t c) {
  return std::any_of(ranges.begin(), ranges.end(),
                     [c](const CharacterRange& range) { return c >= range.first && c <= range.last; });
}

template <typename Groups>
void Unset(const RegExpNode& node, Groups& groups) {
  if (node.kind == RegExpNodeKind::kGroup) {
    groups[node.number - 1].reset();
  }
  for (const RegExpNode& child : node.children) {
    Unset(child, groups);
  }
}

}  // namespace

std::optional<ReferenceRegExp::Match> ReferenceRegExp::Find(std::u16string_view text) {
  text_ = text;
  steps_ = 0;
  for (std::size_t start = 0; start <= text.size(); ++start) {
    std::optional<Match> match;
    State begin{start, {}};
    begin.groups.resize(tree_.groupCount);
    Run(tree_.root, begin, [&](const State& state) {
      match = Match{start, state.end - start, {}};
      for (const auto& group : state.groups) {
        match->groups.push_back(group ? std::optional(text.substr(group->begin, group->end - group->begin))
                                      : std::nullopt);
      }
      return true;
    });
    if (match) {
      return match;
    }
  }
  return std::nullopt;
}

bool ReferenceRegExp::Run(const RegExpNode& node, const State& state, const Continuation& next) {
  if (++steps_ > kMostSteps) {
    throw TooManySteps();
  }
  switch (node.kind) {
    case RegExpNodeKind::kSequence:
      return RunSequence(node, 0, state, next);
    case RegExpNodeKind::kAlternatives:
      return std::any_of(node.children.begin(), node.children.end(),
                         [&](const RegExpNode& child) { return Run(child, state, next); });
    case RegExpNodeKind::kGroup:
      return RunGroup(node, state, next);
    case RegExpNodeKind::kPlainGroup:
      return Run(node.children.front(), state, next);
    case RegExpNodeKind::kLookAhead:
    case RegExpNodeKind::kNegativeLookAhead:
      return RunLookAhead(node, state, next);
    case RegExpNodeKind::kBackReference:
      return RunBackReference(node, state, next);
    case RegExpNodeKind::kRepeat:
      return RunRepeat(node, 0, state, next);
    case RegExpNodeKind::kStart:
    case RegExpNodeKind::kEnd:
    case RegExpNodeKind::kWordEdge:
    case RegExpNodeKind::kNoWordEdge:
      return Holds(node, state.end) && next(state);
    default:
      break;
  }
  if (state.end == text_.size() || !MatchesOne(node, text_[state.end])) {
    return false;
  }
  State behind = state;
  ++behind.end;
  return next(behind);
}

bool ReferenceRegExp::RunSequence(const RegExpNode& node, std::size_t child, const State& state,
                                  const Continuation& next) {
  if (child == node.children.size()) {
    return next(state);
  }
  return Run(node.children[child], state,
             [&, child](const State& behind) { return RunSequence(node, child + 1, behind, next); });
}

bool ReferenceRegExp::RunRepeat(const RegExpNode& node, unsigned done, const State& state, const Continuation& next) {
  if (++steps_ > kMostSteps) {
    throw TooManySteps();
  }
  if (done == node.most) {
    return next(state);
  }
  const auto round = [&] {
    State begin = state;
    Unset(node.children.front(), begin.groups);
    return Run(node.children.front(), begin, [&](const State& behind) {
      const bool isEmpty = done >= node.least && behind.end == state.end;
      return !isEmpty && RunRepeat(node, done + 1, behind, next);
    });
  };
  if (done < node.least) {
    return round();
  }
  return node.lazy ? next(state) || round() : round() || next(state);
}

bool ReferenceRegExp::RunGroup(const RegExpNode& node, const State& state, const Continuation& next) {
  return Run(node.children.front(), state, [&](const State& behind) {
    State captured = behind;
    captured.groups[node.number - 1] = Range{state.end, behind.end};
    return next(captured);
  });
}

bool ReferenceRegExp::RunLookAhead(const RegExpNode& node, const State& state, const Continuation& next) {
  State seen;
  const bool matches = Run(node.children.front(), state, [&seen](const State& behind) {
    seen = behind;
    return true;
  });
  if (node.kind == RegExpNodeKind::kNegativeLookAhead) {
    return !matches && next(state);
  }
  seen.end = state.end;
  return matches && next(seen);
}

bool ReferenceRegExp::RunBackReference(const RegExpNode& node, const State& state, const Continuation& next) {
  const std::optional<Range>& group = state.groups[node.number - 1];
  if (!group) {
    return next(state);
  }
  const std::u16string_view wanted = text_.substr(group->begin, group->end - group->begin);
  const std::u16string_view there = text_.substr(state.end, wanted.size());
  const bool isSame = std::equal(wanted.begin(), wanted.end(), there.begin(), there.end(),
                                 [this](char16_t a, char16_t b) { return Fold(a) == Fold(b); });
  State behind = state;
  behind.end += wanted.size();
  return isSame && next(behind);
}

bool ReferenceRegExp::Holds(const RegExpNode& node, std::size_t place) const {
  const auto isLineEnd = [](char16_t c) { return c == u'\r' || c == u'\n'; };
  const bool hasBefore = place > 0;
  const bool hasBehind = place < text_.size();
  switch (node.kind) {
    case RegExpNodeKind::kStart:
      return !hasBefore || (options_.multiLine && isLineEnd(text_[place - 1]));
    case RegExpNodeKind::kEnd:
      return !hasBehind || (options_.multiLine && isLineEnd(text_[place]));
    default: {
      const bool wordBefore = hasBefore && IsWordCharacter(text_[place - 1]);
      const bool wordBehind = hasBehind && IsWordCharacter(text_[place]);
      return (wordBefore != wordBehind) == (node.kind == RegExpNodeKind::kWordEdge);
    }
  }
}

bool ReferenceRegExp::MatchesOne(const RegExpNode& node, char16_t c) const {
  switch (node.kind) {
    case RegExpNodeKind::kLiteral:
      return Fold(c) == Fold(node.character);
    case RegExpNodeKind::kAnyButLineFeed:
      return c != u'\n';
    case RegExpNodeKind::kClassEscape: {
      const bool isLower = node.character >= u'a';
      return Contains(ClassEscapeRanges(isLower ? node.character : static_cast<char16_t>(node.character | 0x20)), c) ==
             isLower;
    }
    default: {
      const char16_t folded = Fold(c);
      const bool isLetter = options_.ignoreCase && folded >= u'A' && folded <= u'Z';
      const bool contains =
          Contains(node.ranges, c) ||
          (isLetter && (Contains(node.ranges, folded) || Contains(node.ranges, static_cast<char16_t>(folded | 0x20))));
      return contains != node.negated;
    }
  }
}

char16_t ReferenceRegExp::Fold(char16_t c) const {
  return options_.ignoreCase && c >= u'a' && c <= u'z' ? static_cast<char16_t>(c & ~0x20) : c;
}

}  // namespace scrivanta
