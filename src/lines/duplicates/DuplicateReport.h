// The list of repeats that the duplicate filters write.
#pragma once

#include <string_view>

#include "text/Encoding.h"
#include "text/LineWriter.h"

namespace scrivanta {

class DuplicateReport {
 public:
  // Of the filter over the whole text: six empty lines, the header, and an empty line above the first repeat.
  static DuplicateReport WithGaps(LineWriter& out, Encoding encoding);
  // Of the filter of consecutive lines: the header alone.
  static DuplicateReport Plain(LineWriter& out, Encoding encoding);

  void Add(std::string_view repeat);

 private:
  DuplicateReport(LineWriter& out, Encoding encoding, bool gapBeforeFirst);

  LineWriter& out_;
  bool gapBeforeNext_;
};

}  // namespace scrivanta
