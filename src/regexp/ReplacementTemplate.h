// A replacement with its references to the match: $1 to $99, $&, $`, $' and $$.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "regexp/RegExp.h"

namespace scrivanta {

class ReplacementTemplate {
 public:
  // A $ before anything else, or before the number of a group that the pattern does not have, stands for itself.
  ReplacementTemplate(std::u16string_view replacement, std::size_t groupCount);

  // Whether it refers to the text before or behind the match.
  bool NeedsWholeText() const;
  // Appends what takes the place of a match in a text.
  void AppendTo(std::u16string& out, std::u16string_view text, const RegExpMatch& match) const;

 private:
  enum class Kind { kText, kGroup, kMatch, kBefore, kBehind };
  struct Part {
    Kind kind = Kind::kText;
    std::size_t group = 0;
    std::u16string text;
  };

  // Returns how many characters of the rest, which begins with a $, are a reference; 0 when they are none.
  std::size_t TakeReference(std::u16string_view rest, std::size_t groupCount);
  void AddText(std::u16string_view text);

  std::vector<Part> parts_;
};

}  // namespace scrivanta
