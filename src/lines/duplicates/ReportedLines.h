// The lines of a report, to be asked for by their beginnings.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "lines/LineStore.h"
#include "lines/duplicates/KeyedLine.h"
#include "text/Progress.h"

namespace scrivanta {

class ReportedLines {
 public:
  // All lines of the report but its first, which stands behind no line break. Throws FileError, Interrupted.
  ReportedLines(LineReader& report, Progress& progress);

  // Whether a line break followed by the line occurs in the report.
  bool HasAtLineBegin(std::string_view line) const;

 private:
  void Sort(Progress& progress);
  // The first of the sorted lines that does not stand before this one; none when all do.
  const KeyedLine* FirstNotLess(std::string_view line) const;

  LineStore lines_;
  std::vector<KeyedLine> sorted_;  // by their bytes; the key is the first eight of them, for quick comparison
};

}  // namespace scrivanta
