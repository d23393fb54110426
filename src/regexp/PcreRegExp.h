// The built-in engine: PCRE2 with JIT.
//
// A search never overflows the stack, never runs away and can always be interrupted. The pattern is compiled twice. The
// first program is fast and may take only few steps from any one place of the text. Where these do not do, the second
// one tries that place again: it calls back before every item of the pattern, and may take many steps before the search
// is given up. It is compiled only when it is needed, which for most patterns is never.
#pragma once

#include <memory>
#include <string>

#include "regexp/PcrePattern.h"
#include "regexp/RegExp.h"

namespace scrivanta {

class PcreRegExp final : public RegExp {
 public:
  // Throws RegExpSyntaxError.
  PcreRegExp(std::u16string_view pattern, RegExpOptions options);
  ~PcreRegExp() override;

  std::size_t groupCount() const noexcept override { return pattern_.groups.size(); }
  bool StaysInLine() const noexcept override { return pattern_.staysInLine; }

 private:
  class Program;
  class Search;

  void ScanAll(std::u16string_view text, std::size_t from, const RegExpVisitor& visit, Progress& progress) override;
  std::unique_ptr<Program> MakeProgram(bool watched) const;

  PcrePattern pattern_;
  RegExpOptions options_;
  std::unique_ptr<Program> fast_;
  std::unique_ptr<Program> watched_;
};

class PcreEngine final : public RegExpEngine {
 public:
  std::unique_ptr<RegExp> Compile(std::u16string_view pattern, RegExpOptions options) const override;
};

}  // namespace scrivanta
