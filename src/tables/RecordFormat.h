// How the records of a table are written down.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "tables/TextWidth.h"
#include "text/Encoding.h"

namespace scrivanta {

enum class Separation {
  kTab,          // one line a record, no quotes
  kComma,        // RFC 4180: a field in quotes may hold commas, line breaks, and quotes twice
  kSemicolon,    // the same with semicolons
  kBlanks,       // runs of spaces, tabs and full-width spaces; those around the line separate nothing
  kText,         // a text of the user's, taken literally
  kPattern,      // whatever a pattern of the program's dialect matches in a line
  kFixedWidths,  // fields of given widths, nothing between them
};

struct RecordFormat {
  Separation separation = Separation::kTab;
  std::u16string text = {};               // of kText and kPattern; not empty
  std::vector<std::size_t> widths = {};   // of kFixedWidths
  WidthUnit unit = WidthUnit::kGbkBytes;  // of the widths
  bool lastTakesRest =
      false;  // of kFixedWidths: one more field takes what is behind the widths, and nothing is refused
  Encoding encoding = Encoding::kGbk;
};

// "tab", "comma", "semicolon", "blanks", else the name itself is the delimiter. Not empty.
RecordFormat FormatOfDelimiter(std::u16string_view name, Encoding encoding);

}  // namespace scrivanta
