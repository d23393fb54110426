// What searches patterns, as the options say at the time: a change of theirs holds from the next search on.
#pragma once

#include "regexp/RegExp.h"
#include "shell/window/Options.h"

namespace scrivanta {

class ChosenRegExpEngine final : public RegExpEngine {
 public:
  ChosenRegExpEngine(const Settings& settings, const RegExpEngine& object) : settings_(settings), object_(object) {}

  std::unique_ptr<RegExp> Compile(std::u16string_view pattern, RegExpOptions options) const override {
    const bool usesObject = ReadOptions(settings_).usesRegExpObject;
    return (usesObject ? object_ : BuiltInRegExpEngine()).Compile(pattern, options);
  }

 private:
  const Settings& settings_;
  const RegExpEngine& object_;  // the platform's
};

}  // namespace scrivanta
