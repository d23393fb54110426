// The dialect once more, as slow and plain as ECMA-262, 3rd edition, 15.10 writes it down: what a match of the engine
// is compared with. Knows of upper and lower case only what ASCII needs.
#pragma once

#include <functional>
#include <optional>
#include <string_view>
#include <vector>

#include "regexp/RegExp.h"
#include "regexp/RegExpSyntax.h"

namespace scrivanta {

class ReferenceRegExp {
 public:
  struct Match {
    std::size_t start = 0;
    std::size_t length = 0;
    std::vector<std::optional<std::u16string_view>> groups;

    bool operator==(const Match&) const = default;
  };

  // Thrown when a search takes more than a few thousand steps.
  struct TooManySteps {};

  ReferenceRegExp(const RegExpTree& tree, RegExpOptions options) : tree_(tree), options_(options) {}

  // The first match in the text; nothing when there is none.
  std::optional<Match> Find(std::u16string_view text);

 private:
  struct Range {
    std::size_t begin;
    std::size_t end;
  };
  struct State {
    std::size_t end = 0;
    std::vector<std::optional<Range>> groups;
  };
  using Continuation = std::function<bool(const State&)>;

  bool Run(const RegExpNode& node, const State& state, const Continuation& next);
  bool RunSequence(const RegExpNode& node, std::size_t child, const State& state, const Continuation& next);
  bool RunRepeat(const RegExpNode& node, unsigned done, const State& state, const Continuation& next);
  bool RunGroup(const RegExpNode& node, const State& state, const Continuation& next);
  bool RunLookAhead(const RegExpNode& node, const State& state, const Continuation& next);
  bool RunBackReference(const RegExpNode& node, const State& state, const Continuation& next);
  bool Holds(const RegExpNode& node, std::size_t place) const;
  bool MatchesOne(const RegExpNode& node, char16_t c) const;
  char16_t Fold(char16_t c) const;

  const RegExpTree& tree_;
  RegExpOptions options_;
  std::u16string_view text_;
  unsigned steps_ = 0;
};

}  // namespace scrivanta
