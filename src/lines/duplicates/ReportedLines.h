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
  // The lines below the report's header, which is the first line that is not empty. Throws FileError, Interrupted.
  ReportedLines(LineReader& report, Progress& progress);

  // Whether a line break followed by the line occurs there.
  bool HasAtLineBegin(std::string_view line) const;

 private:
  void Sort(Progress& progress);
  // The first of the sorted lines that does not stand before this one; none when all do.
  const KeyedLine* FirstNotLess(std::string_view line) const;

  LineStore lines_;
  std::vector<KeyedLine> sorted_;  // by their bytes; the key is the first eight of them, for quick comparison
};

}  // namespace scrivanta
