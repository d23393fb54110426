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

// Two lists of unequal length ("寻找、替换个数不相等！"): throws ExplainedError, and nothing is changed.
class MultiReplace {
 public:
  // Find text by find text instead of a list, so that a "|" in them is nothing but a "|".
  struct Pair {
    std::u16string find;
    std::u16string replacement;
  };

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

// Replaces in a file, or in the text itself when it names none, and returns the result. A file is replaced in one step
// and keeps its encoding and line ends. Throws as above, and FileError.
std::u16string MultiReplaceInFile(std::u16string_view source, std::u16string_view findList,
                                  std::u16string_view replaceList, bool ignoreCase, Progress& progress);

// Replaces in every line; count grows by the number of places. Throws as above; the lines are then as they were.
void MultiReplaceInList(std::vector<std::u16string>& lines, std::u16string_view findList,
                        std::u16string_view replaceList, bool ignoreCase, std::size_t& count, Progress& progress);

}  // namespace scrivanta
