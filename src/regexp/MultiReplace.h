// Plain replacement of several texts at once. Both lists are separated by "|"; every find item that is not empty is
// replaced by the replace item of the same place, one item after the other.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "text/LiteralFinder.h"
#include "text/Progress.h"

namespace scrivanta {

// The items of a list, empty ones too.
std::vector<std::u16string> ItemsOfList(std::u16string_view list);

// Two lists of unequal length ("寻找、替换个数不相等！"): throws ExplainedError, and nothing is changed.
class MultiReplace {
 public:
  // Find text by find text instead of a list, so that a "|" in them is nothing but a "|".
  struct Pair {
    std::u16string find;
    std::u16string replacement;
  };

  static std::vector<Pair> PairUp(std::u16string_view findList, std::u16string_view replaceList);

  MultiReplace(std::u16string_view findList, std::u16string_view replaceList, bool ignoreCase);
  MultiReplace(std::vector<Pair> pairs, bool ignoreCase);

  // Returns how many places were replaced. Throws Interrupted; the text is then as it was.
  std::size_t Apply(std::u16string& text, Progress& progress) const;

 private:
  struct Item {
    LiteralFinder find;
    std::u16string replacement;
    bool swaps = false;  // by way of the swap marker: the replacement contains the text to find
  };

  std::vector<Item> items_;
};

}  // namespace scrivanta
