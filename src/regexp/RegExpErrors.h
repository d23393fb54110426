// What can go wrong with a pattern. Both errors say what and where, in English and in Chinese.
#pragma once

#include <cstddef>
#include <string>

#include "text/ExplainedError.h"

namespace scrivanta {

enum class RegExpFault {
  kNothingToRepeat,
  kUnclosedGroup,
  kUnopenedGroup,
  kUnclosedClass,
  kReversedRange,
  kReversedCount,
  kCountTooLarge,
  kBackslashAtEnd,
  kUnknownGroup,
  kNestedTooDeep,
  kTooLarge,
};

// The pattern is not one of the dialect.
class RegExpSyntaxError : public ExplainedError {
 public:
  // The position is that of the offending character of the pattern, in characters from 0.
  RegExpSyntaxError(RegExpFault fault, std::size_t position);

  RegExpFault fault() const noexcept { return fault_; }
  std::size_t position() const noexcept { return position_; }

 private:
  RegExpFault fault_;
  std::size_t position_;
};

// The search was given up, because the pattern needs too many steps or too much memory on this text.
class RegExpTooComplex : public ExplainedError {
 public:
  // The position is where in the text the match that could not be decided would begin, in characters from 0.
  explicit RegExpTooComplex(std::size_t position);

  std::size_t position() const noexcept { return position_; }

 private:
  std::size_t position_;
};

}  // namespace scrivanta
