#include "lines/LineSort.h"

#include <algorithm>
#include <span>

#include "lines/HanziOrder.h"
#include "lines/LineNumber.h"
#include "lines/PacedProgress.h"
#include "lines/StringOrder.h"
#include "lines/WriteInOrder.h"
#include "lines/duplicates/KeyedLine.h"

namespace scrivanta {

namespace {

void SortByNumber(const LineStore& lines, std::span<KeyedLine> range, Encoding encoding, Progress& progress) {
  PacedProgress reading(progress, range.size());
  for (KeyedLine& line : range) {
    reading.Step();
    line.key = LineNumber(lines[line.index], encoding).Key();
  }
  KeySorter(progress).Sort(range);
  PacedProgress comparing(progress, 0);
  ForEachRun(range, [&](std::span<KeyedLine> run) {
    if (!LineNumber::IsExactKey(run.front().key)) {
      std::ranges::stable_sort(run, [&](const KeyedLine& left, const KeyedLine& right) {
        comparing.Step();
        return LineNumber(lines[left.index], encoding) < LineNumber(lines[right.index], encoding);
      });
    }
  });
}

void SortRange(const LineStore& lines, std::span<KeyedLine> range, const SortOptions& options, Progress& progress) {
  switch (options.by) {
    case SortBy::kString:
      StringOrder(lines, options.encoding, progress).Sort(range);
      break;
    case SortBy::kNumber:
      SortByNumber(lines, range, options.encoding, progress);
      break;
    case SortBy::kPinyin:
      HanziOrder(lines, options.encoding, HanziOrderBy::kPinyin, progress).Sort(range);
      break;
    case SortBy::kStrokes:
      HanziOrder(lines, options.encoding, HanziOrderBy::kStrokes, progress).Sort(range);
      break;
  }
}

}  // namespace

void SortLines(const LineStore& lines, LineWriter& out, const SortOptions& options, Progress& progress) {
  std::vector<KeyedLine> order(lines.size());
  for (std::size_t i = 0; i < order.size(); ++i) {
    order[i].index = i;
  }
  if (options.first < options.last) {
    const std::span<KeyedLine> range = std::span(order).subspan(options.first - 1, options.last + 1 - options.first);
    SortRange(lines, range, options, progress);
  }
  if (options.descending) {
    std::ranges::reverse(order);
  }
  WriteInOrder(
      lines, order.size(), [&order](std::size_t i) { return order[i].index; }, out, progress);
}

}  // namespace scrivanta
