// Takes the matches of patterns out of a text, or all but the matches.
#pragma once

#include <string>
#include <string_view>

#include "regexp/RegExp.h"

namespace scrivanta {

enum class MarkerFilterMode {
  kExtract,  // the matches, as ExtractFromText gives them, each with a line break behind it
  kRemove,   // the text without its matches; a line of which nothing is left goes with its line break
};

// The patterns are separated by "|". Throws RegExpSyntaxError, RegExpTooComplex, Interrupted.
std::u16string MarkerFilterText(const RegExpEngine& engine, std::u16string_view text, std::u16string_view patterns,
                                MarkerFilterMode mode, bool ignoreCase, Progress& progress);

}  // namespace scrivanta
