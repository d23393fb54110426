// The windows of all programs on the desktop.
#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace scrivanta {

std::vector<std::u16string> TopLevelWindowTitles();

// The titles of those that can be seen and have one, each once.
std::vector<std::u16string> VisibleWindowTitles();

// Where the inside of a window begins, in pixels of the whole desktop: of the visible one with that title, or of the
// first that has it in its title when there is none.
std::optional<POINT> TopLevelClientCorner(std::u16string_view title);

}  // namespace scrivanta
