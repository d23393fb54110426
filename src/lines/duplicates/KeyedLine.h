// Lines that stand in for themselves while they are sorted.
#pragma once

#include <algorithm>
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

// Calls work(run) for every run of lines with the same key, which may change the order within it.
void ForEachRun(std::span<KeyedLine> lines, const auto& work) {
  while (!lines.empty()) {
    const std::uint64_t key = lines.front().key;
    const auto end = std::ranges::find_if(lines, [key](const KeyedLine& line) { return line.key != key; });
    const auto length = static_cast<std::size_t>(end - lines.begin());
    work(lines.first(length));
    lines = lines.subspan(length);
  }
}

}  // namespace scrivanta
