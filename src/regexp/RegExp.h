// Patterns in the program's own dialect (docs/REGEXP.md), behind an interface, so that the engine can be chosen: the
// built-in one, or the platform's scripting object. Positions and lengths are UTF-16 code units, positions from 0.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "text/Interface.h"
#include "text/Progress.h"

namespace scrivanta {

struct RegExpOptions {
  bool ignoreCase = false;
  bool multiLine = false;  // ^ and $ also hold beside every carriage return and every line feed
};

// Views into the searched text, valid while the match is visited.
struct RegExpMatch {
  std::size_t start = 0;
  std::u16string_view value;
  // Group n stands at n - 1; none for a group that took no part in the match.
  std::vector<std::optional<std::u16string_view>> groups;

  std::size_t end() const noexcept { return start + value.size(); }
};

// Returns whether to go on to the next match.
using RegExpVisitor = std::function<bool(const RegExpMatch&)>;

// A pattern made ready. Keeps the working memory of its searches, so one object serves one search at a time.
class RegExp : public Interface {
 public:
  // Visits the matches that start at `from` or later, from left to right, none overlapping the one before it. After an
  // empty match the search goes on one character further, so it always ends. A line break is one place: an empty match
  // between the two characters of CR LF is passed over. Throws RegExpTooComplex, Interrupted.
  void Scan(std::u16string_view text, std::size_t from, const RegExpVisitor& visit, Progress& progress);
  virtual std::size_t groupCount() const noexcept = 0;
  // Whether no match holds a line feed or minds what is beyond one. A text may then be searched in pieces that end
  // behind a line feed; only a match at the very end of a piece is none of the text, unless the piece is the last one.
  virtual bool StaysInLine() const noexcept { return false; }

  // Whether the pattern matches anywhere in the text.
  bool Matches(std::u16string_view text, Progress& progress);

 private:
  // As Scan, but with the matches within line breaks.
  virtual void ScanAll(std::u16string_view text, std::size_t from, const RegExpVisitor& visit, Progress& progress) = 0;
};

class RegExpEngine : public Interface {
 public:
  // Throws RegExpSyntaxError.
  virtual std::unique_ptr<RegExp> Compile(std::u16string_view pattern, RegExpOptions options) const = 0;
};

// The default: gives the same results on every system.
const RegExpEngine& BuiltInRegExpEngine();

}  // namespace scrivanta
