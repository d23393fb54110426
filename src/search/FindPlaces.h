// All places of what is to be found, plain or by pattern.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "regexp/RegExp.h"
#include "search/FindState.h"
#include "search/TextEdits.h"
#include "shell/workbench/Editor.h"

namespace scrivanta {

// Ascending, none overlapping another. A pattern's empty matches are among them. Throws RegExpSyntaxError,
// RegExpTooComplex, Interrupted.
std::vector<TextRange> FindPlaces(std::u16string_view text, const FindState& state, const RegExpEngine& engine,
                                  Progress& progress);

// The same, each with what is to take its place.
TextEdits FindReplacements(std::u16string_view text, const FindState& state, const RegExpEngine& engine,
                           Progress& progress);

// The pattern of a whole line that contains a plain text.
std::u16string WholeLinePattern(std::u16string_view find);

}  // namespace scrivanta
