// The line filters in their regular-expression form.
#pragma once

#include <string_view>

#include "lines/WordFilter.h"
#include "regexp/RegExp.h"
#include "text/Encoding.h"
#include "text/LineReader.h"
#include "text/LineWriter.h"

namespace scrivanta {

// The keyword is a pattern. The one group holds what it matches in the whole text, one match a line. The other holds
// the text, with every line emptied in which something was matched; a match across lines makes one line of them first.
// Throws RegExpSyntaxError, RegExpTooComplex, Interrupted.
void RegExpWordFilter(std::u16string_view text, LineWriter& have, LineWriter& haveNot, const WordFilterOptions& options,
                      const RegExpEngine& engine, Progress& progress);

// Lines are repeats when what the pattern extracts from them, all matches in a row, is the same as from an earlier
// line. A line in which it matches nothing, and an empty line, is always kept. The report is that of FilterDuplicates.
void RegExpFilterDuplicates(LineReader& in, LineWriter& kept, LineWriter& report, std::u16string_view pattern,
                            Encoding encoding, const RegExpEngine& engine, Progress& progress);

}  // namespace scrivanta
