// Sorts a range of lines.
#pragma once

#include <cstddef>
#include <vector>

#include "lines/LineStore.h"
#include "text/Encoding.h"
#include "text/LineWriter.h"
#include "text/Progress.h"

namespace scrivanta {

enum class SortBy {
  kString,  // the UTF-16 code units of the lines
  kNumber,  // the first number in every line; lines with the same number keep their order
  kPinyin,  // as HanziOrder has them, here and below
  kStrokes,
};

struct SortOptions {
  SortBy by = SortBy::kString;
  // Writes all lines backwards after sorting, those outside the range too.
  bool descending = false;
  // The lines to sort, from 1, both included. The range must lie within the lines; it is empty when last < first.
  std::size_t first = 1;
  std::size_t last = 0;
  Encoding encoding = Encoding::kGbk;
};

// Sorts the range ascending and writes all lines. Throws FileError, Interrupted.
void SortLines(const LineStore& lines, LineWriter& out, const SortOptions& options, Progress& progress);

}  // namespace scrivanta
