// The platform's own object for patterns as an engine, for who has chosen it in place of the built-in one. The object
// cannot be stopped while it searches, and what it makes of a pattern is its own affair.
#pragma once

#include <memory>
#include <string_view>

#include "regexp/RegExp.h"
#include "text/ExplainedError.h"
#include "text/Interface.h"

namespace scrivanta {

// Neither there nor to be registered.
class RegExpObjectMissing : public ExplainedError {
 public:
  RegExpObjectMissing();
};

class RegExpObject : public Interface {
 public:
  // Visits all matches of the pattern in the text, from left to right. Throws std::runtime_error with what the object
  // says.
  virtual void Execute(std::u16string_view pattern, RegExpOptions options, std::u16string_view text,
                       const RegExpVisitor& visit) = 0;
};

// Where such an object comes from.
class RegExpObjectSource : public Interface {
 public:
  // Null when it cannot be made.
  virtual std::unique_ptr<RegExpObject> Create() = 0;
  // Registers the library of the object without a word to the user, and returns when that had time to be done.
  virtual void Register() = 0;
};

// Makes the object; where that fails, registers it once and tries again. Throws RegExpObjectMissing.
std::unique_ptr<RegExpObject> EnsureRegExpObject(RegExpObjectSource& source);

class RegExpObjectEngine final : public RegExpEngine {
 public:
  explicit RegExpObjectEngine(RegExpObjectSource& source) : source_(source) {}

  // A pattern that is not one of the dialect never reaches the object, which would not say where the fault lies. Throws
  // RegExpObjectMissing too.
  std::unique_ptr<RegExp> Compile(std::u16string_view pattern, RegExpOptions options) const override;

 private:
  RegExpObjectSource& source_;
};

}  // namespace scrivanta
