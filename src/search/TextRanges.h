#pragma once

#include <vector>

#include "shell/workbench/Editor.h"

namespace scrivanta {

// In ascending order, those that overlap or touch as one, without empty ones.
std::vector<TextRange> MergeRanges(std::vector<TextRange> ranges);

}  // namespace scrivanta
