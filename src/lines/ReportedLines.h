// The lines of a report, to be asked for by their beginnings.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "lines/LineStore.h"

namespace scrivanta {

class ReportedLines {
 public:
  // All lines of the report but its first, which stands behind no line break. Throws FileError, Interrupted.
  explicit ReportedLines(LineReader& report);

  // Whether a line break followed by the line occurs in the report.
  bool HasAtLineBegin(std::string_view line) const;

 private:
  struct Entry {
    std::uint64_t beginning = 0;  // the first eight bytes, for quick comparison
    std::string_view line;
  };

  static Entry EntryOf(std::string_view line);
  static bool Less(const Entry& left, const Entry& right);
  const Entry* FirstNotLess(std::string_view line) const;

  LineStore lines_;
  std::vector<Entry> sorted_;
};

}  // namespace scrivanta
