#pragma once

#include <string_view>
#include <vector>

#include "shell/workbench/Editor.h"

namespace scrivanta {

// In ascending order, those that overlap or touch as one, without empty ones.
std::vector<TextRange> MergeRanges(std::vector<TextRange> ranges);

// The lines that the range touches, without the line break of the last one. A range that ends with a line break does
// not touch the line behind it.
TextRange WholeLines(std::u16string_view text, TextRange range);

}  // namespace scrivanta
