// Lines set side by side in columns with blanks, page by page, and taken apart again.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "tables/LinePass.h"
#include "tables/TextWidth.h"
#include "text/LineWriter.h"

namespace scrivanta {

// What happens to a line that is wider than its column.
enum class TooWide {
  kWrap,   // goes on in the place below
  kCut,    // is cut, and the report says what
  kWiden,  // the column becomes as wide as its widest line
};

struct NewspaperOptions {
  std::size_t count = 2;         // of columns, from 1
  std::size_t linesPerPage = 0;  // in a column; 0: all lines on one page, in columns of the same length
  std::size_t width = 0;         // of a column; 0: each is as wide as its widest line
  std::size_t gap = 2;           // blanks between columns
  bool across = false;           // the second line stands beside the first, not below it
  TooWide tooWide = TooWide::kWrap;
  WidthUnit unit = WidthUnit::kGbkBytes;
  Encoding encoding = Encoding::kGbk;
};

struct NewspaperResult {
  std::uint64_t lines = 0;  // that were set
  std::uint64_t cutLines = 0;
};

// Reads the lines once, or up to three times where lengths and widths are to be found. Holds one page; across, one row.
// No line that is written ends in a blank. What is cut off goes into the report, one line each: the number of the line,
// a tab, the rest. Throws FileError, Interrupted.
NewspaperResult SetInColumns(const LinePass& lines, LineWriter& out, LineWriter& cutOff,
                             const NewspaperOptions& options);

// The way back: the cells of each page as lines, in the order of the columns or across, without the blanks behind them
// and without the empty ones at the end. With a width of 0 the columns are found by the blanks that all lines have in
// common, at least a gap of them. Returns the number of lines. Throws RecordError where text stands in a gap or where
// there are not so many columns, FileError, Interrupted.
std::uint64_t TakeColumnsApart(const LinePass& lines, LineWriter& out, const NewspaperOptions& options);

}  // namespace scrivanta
