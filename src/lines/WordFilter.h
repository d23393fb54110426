// Splits lines into those that contain a keyword and those that do not.
#pragma once

#include <cstdint>
#include <string>

#include "text/Encoding.h"
#include "text/LineReader.h"
#include "text/LineWriter.h"

namespace scrivanta {

struct WordFilterOptions {
  std::u16string keyword;              // found as it stands, letter by letter; not empty
  Encoding encoding = Encoding::kGbk;  // of the lines
};

// How many lines the headers take.
inline constexpr std::uint64_t kHaveHeaderLines = 1;
inline constexpr std::uint64_t kHaveNotHeaderLines = 3;

// The header line above the group of lines that contain the keyword.
void WriteHaveHeader(LineWriter& have, const WordFilterOptions& options);
// An empty line, a rule as wide as the header below it, and the header of the other group.
void WriteHaveNotHeader(LineWriter& haveNot, const WordFilterOptions& options);

// Writes both headers, and every line into its group, in order.
void WordFilter(LineReader& in, LineWriter& have, LineWriter& haveNot, const WordFilterOptions& options);

}  // namespace scrivanta
