// A pattern and what takes the place of its matches, made ready.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "regexp/RegExp.h"
#include "regexp/ReplacementTemplate.h"

namespace scrivanta {

class RegExpReplacer {
 public:
  // In the replacement \1, \2 ... and $1 ... $99 stand for groups, $& for the match, $` and $' for the text before and
  // behind it, $$ for $. A pattern without a group is one group when the replacement has \1. Throws RegExpSyntaxError.
  RegExpReplacer(const RegExpEngine& engine, std::u16string_view pattern, std::u16string_view replacement,
                 RegExpOptions options);

  // Whether a text may be given in pieces, as RegExp::StaysInLine says.
  bool StaysInLine() const { return regExp_->StaysInLine() && !template_.NeedsWholeText(); }
  RegExp& regExp() const noexcept { return *regExp_; }
  // Appends what takes the place of a match in the text.
  void AppendReplacement(std::u16string& out, std::u16string_view text, const RegExpMatch& match) const {
    template_.AppendTo(out, text, match);
  }

 private:
  std::unique_ptr<RegExp> regExp_;
  ReplacementTemplate template_;
};

}  // namespace scrivanta
