// All matches of a pattern in a text, and their literal replacement.
#pragma once

#include <string>
#include <string_view>

#include "regexp/MatchList.h"
#include "regexp/RegExp.h"

namespace scrivanta {

// Stands for "no replacement given" wherever a replacement may be left out. Compared exactly.
inline constexpr std::u16string_view kNoReplacement = u"[*VBNullString*]";

struct RegExpExecuteOptions {
  bool multiLine = false;
  bool global = false;  // every match, not only the first
  bool ignoreCase = false;
};

// Lists the matches. Unless the replacement is kNoReplacement, every listed match is also replaced in the text by the
// replacement as it stands; the list still tells where the matches stood before. A text without a match stays as it is.
// Throws RegExpSyntaxError, RegExpTooComplex, Interrupted; the text is then as it was.
MatchList RegExpExecute(const RegExpEngine& engine, std::u16string& text, std::u16string_view pattern,
                        std::u16string_view replacement, RegExpExecuteOptions options, Progress& progress);

}  // namespace scrivanta
