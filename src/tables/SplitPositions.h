#pragma once

#include <cstddef>
#include <vector>

#include "tables/RecordFormat.h"

namespace scrivanta {

// The format that cuts each line behind these places, counted in the unit from the line's beginning. A character that
// lies across a place belongs to the field behind it. Throws LayoutError where the places do not rise.
RecordFormat FormatOfPositions(const std::vector<std::size_t>& positions, WidthUnit unit, Encoding encoding);

}  // namespace scrivanta
