#include "lines/duplicates/ReportedLines.h"

#include <algorithm>

#include "lines/PacedProgress.h"

namespace scrivanta {

namespace {

// The first eight bytes, 0 for those that are missing. Lines with different beginnings are in the order of these.
std::uint64_t BeginningOf(std::string_view line) {
  std::uint64_t beginning = 0;
  for (std::size_t i = 0; i < sizeof(beginning); ++i) {
    beginning = (beginning << 8U) | (i < line.size() ? static_cast<unsigned char>(line[i]) : 0U);
  }
  return beginning;
}

}  // namespace

ReportedLines::ReportedLines(LineReader& report, Progress& progress) : lines_(report) {
  PacedProgress gathering(progress, lines_.size());
  bool isBelowHeader = false;
  for (std::size_t i = 0; i < lines_.size(); ++i) {
    gathering.Step();
    if (isBelowHeader && (sorted_.empty() || lines_[i] != lines_[i - 1])) {
      sorted_.push_back({BeginningOf(lines_[i]), i});
    }
    isBelowHeader = isBelowHeader || !lines_[i].empty();
  }
  Sort(progress);
}

bool ReportedLines::HasAtLineBegin(std::string_view line) const {
  const KeyedLine* found = FirstNotLess(line);
  if (found != nullptr && lines_[found->index].starts_with(line)) {
    return true;
  }
  if (!line.ends_with('\r')) {
    return false;
  }
  line.remove_suffix(1);
  found = FirstNotLess(line);
  return found != nullptr && lines_[found->index] == line;
}

void ReportedLines::Sort(Progress& progress) {
  KeySorter(progress).Sort(sorted_);
  PacedProgress comparing(progress, 0);
  ForEachRun(sorted_, [&](std::span<KeyedLine> run) {
    std::ranges::sort(run, [&](const KeyedLine& left, const KeyedLine& right) {
      comparing.Step();
      return lines_[left.index] < lines_[right.index];
    });
  });
}

const KeyedLine* ReportedLines::FirstNotLess(std::string_view line) const {
  const std::uint64_t beginning = BeginningOf(line);
  const auto found = std::partition_point(sorted_.begin(), sorted_.end(), [&](const KeyedLine& sorted) {
    return sorted.key != beginning ? sorted.key < beginning : lines_[sorted.index] < line;
  });
  return found == sorted_.end() ? nullptr : &*found;
}

}  // namespace scrivanta
