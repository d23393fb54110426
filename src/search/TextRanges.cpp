#include "search/TextRanges.h"

#include <algorithm>

namespace scrivanta {

std::vector<TextRange> MergeRanges(std::vector<TextRange> ranges) {
  std::sort(ranges.begin(), ranges.end(), [](const TextRange& a, const TextRange& b) { return a.start < b.start; });
  std::vector<TextRange> merged;
  for (const TextRange& range : ranges) {
    if (range.empty()) {
      continue;
    }
    if (merged.empty() || merged.back().end() < range.start) {
      merged.push_back(range);
    } else if (merged.back().end() < range.end()) {
      merged.back().length = range.end().value - merged.back().start.value;
    }
  }
  return merged;
}

}  // namespace scrivanta
