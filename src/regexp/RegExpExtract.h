// The text of all matches of a pattern.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "regexp/RegExp.h"

namespace scrivanta {

struct RegExpExtractOptions {
  bool ignoreCase = false;
  // Extracts again from every result of two or more characters, until nothing changes any more. A result in which the
  // pattern is not found any more stays.
  bool repeat = false;
  // Numbers of groups from 1, separated by "\". When there are some, a result is those groups in that order, else the
  // whole match. A group that took no part, or that the pattern does not have, is empty. A pattern without "(" is
  // taken as one group.
  std::u16string groupList = {};
  std::u16string groupSeparator = {};
};

// Matches everywhere, with ^ and $ at every line. A carriage return at the end of a match is dropped, unless the
// pattern ends with the four characters \r\n. Empty results are left out. Throws RegExpSyntaxError, RegExpTooComplex,
// Interrupted.
std::vector<std::u16string> ExtractFromText(const RegExpEngine& engine, std::u16string_view text,
                                            std::u16string_view pattern, const RegExpExtractOptions& options,
                                            Progress& progress);

// The results as one text, separated by line breaks (CR LF).
std::u16string JoinResults(const std::vector<std::u16string>& results);

}  // namespace scrivanta
