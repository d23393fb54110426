#include "lines/ReportedLines.h"

#include <algorithm>

namespace scrivanta {

ReportedLines::ReportedLines(LineReader& report) : lines_(report) {
  for (std::size_t i = 1; i < lines_.size(); ++i) {
    if (i == 1 || lines_[i] != lines_[i - 1]) {
      sorted_.push_back(EntryOf(lines_[i]));
    }
  }
  std::ranges::sort(sorted_, Less);
}

bool ReportedLines::HasAtLineBegin(std::string_view line) const {
  const Entry* entry = FirstNotLess(line);
  if (entry != nullptr && entry->line.starts_with(line)) {
    return true;
  }
  if (!line.ends_with('\r')) {
    return false;
  }
  line.remove_suffix(1);
  entry = FirstNotLess(line);
  return entry != nullptr && entry->line == line;
}

ReportedLines::Entry ReportedLines::EntryOf(std::string_view line) {
  Entry entry{0, line};
  for (std::size_t i = 0; i < sizeof(entry.beginning); ++i) {
    entry.beginning = (entry.beginning << 8U) | (i < line.size() ? static_cast<unsigned char>(line[i]) : 0U);
  }
  return entry;
}

bool ReportedLines::Less(const Entry& left, const Entry& right) {
  return left.beginning != right.beginning ? left.beginning < right.beginning : left.line < right.line;
}

const ReportedLines::Entry* ReportedLines::FirstNotLess(std::string_view line) const {
  const auto found = std::ranges::lower_bound(sorted_, EntryOf(line), Less);
  return found == sorted_.end() ? nullptr : &*found;
}

}  // namespace scrivanta
