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

TextRange WholeLines(std::u16string_view text, TextRange range) {
  const std::size_t first = std::min(range.start.value, text.size());
  const std::size_t last = std::min(range.end().value, text.size());
  const std::size_t start = first == 0 ? 0 : text.find_last_of(u"\r\n", first - 1) + 1;
  std::size_t end = last;
  if (last > start && text[last - 1] == u'\n') {
    end -= last - start > 1 && text[last - 2] == u'\r' ? 2 : 1;
  } else {
    end = std::min(text.find_first_of(u"\r\n", last), text.size());
  }
  return {{start}, end - start};
}

}  // namespace scrivanta
