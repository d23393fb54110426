// The text of all matches of a pattern.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "regexp/RegExp.h"

namespace scrivanta {

struct RegExpExtractOptions {
  bool ignoreCase = false;
  // Extracts again from every result of two or more characters, until nothing changes any more. A result in which the
  // pattern is not found any more stays. One that becomes longer is an error: it might do so without end.
  bool repeat = false;
  // Numbers of groups from 1, separated by "\". When there are some, a result is those groups in that order, else the
  // whole match. A group that took no part, or that the pattern does not have, is empty. A pattern without "(" is
  // taken as one group.
  std::u16string groupList = {};
  std::u16string groupSeparator = {};
};

// Takes a result, which it sees only while it is called.
using ExtractVisitor = std::function<void(std::u16string_view)>;

// A pattern made ready for the extraction from many texts.
class RegExpExtractor {
 public:
  // Throws RegExpSyntaxError.
  RegExpExtractor(const RegExpEngine& engine, std::u16string_view pattern, const RegExpExtractOptions& options,
                  Progress& progress);

  // Whether a text may be given in pieces, as RegExp::StaysInLine says.
  bool StaysInLine() const noexcept { return regExp_->StaysInLine(); }
  // As ExtractFromText.
  std::vector<std::u16string> Extract(std::u16string_view text);
  // The same, without a list of results that may be longer than the text.
  void VisitResults(std::u16string_view text, const ExtractVisitor& visit);

 private:
  void VisitOnce(std::u16string_view text, const ExtractVisitor& visit);
  std::u16string ExtractUntilNothingChanges(std::u16string_view result);
  std::u16string_view ResultOf(const RegExpMatch& match);

  bool keepsCarriageReturn_;
  bool repeat_;
  std::vector<std::size_t> groups_;
  std::u16string separator_;
  std::u16string joinedGroups_;
  Progress& progress_;
  std::unique_ptr<RegExp> regExp_;
};

// Matches everywhere, with ^ and $ at every line. A carriage return at the end of a match is dropped, unless the
// pattern ends with the four characters \r\n. Empty results are left out. Throws RegExpSyntaxError, RegExpTooComplex,
// ExplainedError for a repetition that lengthens a result, Interrupted.
std::vector<std::u16string> ExtractFromText(const RegExpEngine& engine, std::u16string_view text,
                                            std::u16string_view pattern, const RegExpExtractOptions& options,
                                            Progress& progress);

}  // namespace scrivanta
