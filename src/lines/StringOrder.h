// Lines in the order of their UTF-16 code units, whatever encoding they are in.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "lines/LineStore.h"
#include "lines/PacedProgress.h"
#include "lines/duplicates/KeyedLine.h"
#include "text/Encoding.h"

namespace scrivanta {

// Looks at four characters at a time: sorts by the first four, then every group of lines that have these in common by
// the next four, and so on. So most of a line is never looked at, and equal lines cost no more than others.
class StringOrder {
 public:
  StringOrder(const LineStore& lines, Encoding encoding, Progress& progress)
      : lines_(lines), encoding_(encoding), progress_(progress, 0), keySorter_(progress) {}

  // Sorts the lines ascending. Throws Interrupted.
  void Sort(std::span<KeyedLine> lines);

 private:
  // Lines that have their first `depth` bytes in common.
  struct Group {
    std::span<KeyedLine> lines;
    std::size_t depth = 0;
  };

  void SortGroup(Group group);
  void SplitByKey(const Group& group);
  void SortByComparing(const Group& group);
  bool Less(std::size_t left, std::size_t right, std::size_t depth);
  bool EndAlike(const Group& group);
  bool AreEqual(const Group& group) const;

  std::string_view RestOf(std::size_t index, std::size_t depth) const { return lines_[index].substr(depth); }
  std::uint64_t KeyOf(std::string_view rest);
  bool EndsWithinKey(std::string_view rest);
  void DecodeForKey(std::string_view rest);
  std::size_t BytesOfKey(std::uint64_t key) const;

  const LineStore& lines_;
  Encoding encoding_;
  PacedProgress progress_;
  KeySorter keySorter_;
  std::vector<Group> waiting_;
  std::u16string units_;  // the last that were decoded
};

}  // namespace scrivanta
