// Takes repeated lines out and lists them in a report.
#pragma once

#include "text/Encoding.h"
#include "text/LineReader.h"
#include "text/LineWriter.h"

namespace scrivanta {

enum class DuplicateKey {
  kLine,
  kFileName,  // what follows the last "\" of the line, or the whole line
};

struct DuplicateOptions {
  DuplicateKey key = DuplicateKey::kLine;
  Encoding encoding = Encoding::kGbk;  // of lines and report
};

// A line is a repeat when its key, between two spaces, occurs anywhere in the joined keys of the lines kept so far:
// also inside one of them. Empty lines are always kept. The report gets its header and the repeats, in order.
void FilterDuplicates(LineReader& in, LineWriter& kept, LineWriter& report, const DuplicateOptions& options);

// A line is a repeat when it equals the line just before it.
void FilterConsecutiveDuplicates(LineReader& in, LineWriter& kept, LineWriter& report, Encoding encoding);

// Copies the kept lines without those of which the report holds repeats: a line that is not empty is left out when it
// stands anywhere behind a line break below the report's header. So it goes too when a repeat begins with it, and when
// it is a repeat followed by a carriage return, which is the one of the line break there. Lines are compared as a
// whole: of repeats by file name or by pattern the first stays, unless a repeat is the same line or begins with it.
// Throws FileError, Interrupted.
void DropReportedLines(LineReader& kept, LineReader& report, LineWriter& out, Progress& progress);

}  // namespace scrivanta
