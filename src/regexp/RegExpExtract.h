// The text of all matches of a pattern.
#pragma once

#include <memory>
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

// A pattern made ready for the extraction from many texts.
class RegExpExtractor {
 public:
  // Throws RegExpSyntaxError.
  RegExpExtractor(const RegExpEngine& engine, std::u16string_view pattern, const RegExpExtractOptions& options,
                  Progress& progress);

  // As ExtractFromText.
  std::vector<std::u16string> Extract(std::u16string_view text);

 private:
  std::vector<std::u16string> ExtractOnce(std::u16string_view text);
  std::u16string ExtractUntilNothingChanges(std::u16string text);
  std::u16string ResultOf(const RegExpMatch& match) const;

  bool keepsCarriageReturn_;
  bool repeat_;
  std::vector<std::size_t> groups_;
  std::u16string separator_;
  Progress& progress_;
  std::unique_ptr<RegExp> regExp_;
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
