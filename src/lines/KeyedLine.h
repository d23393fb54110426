// Lines that stand in for themselves while they are sorted.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "text/Progress.h"

namespace scrivanta {

struct KeyedLine {
  std::uint64_t key = 0;  // of some part of the line, so that the order of the keys is that of the parts
  std::size_t index = 0;  // in the store
};

// Sorts by key, and keeps the order of those whose keys are the same, as long as lines with smaller indices stand
// first. The time grows with the number of lines, whatever their keys are.
class KeySorter {
 public:
  explicit KeySorter(Progress& progress) : progress_(progress) {}

  void Sort(std::span<KeyedLine> lines);

 private:
  Progress& progress_;
  std::vector<KeyedLine> scratch_;
};

}  // namespace scrivanta
