// The windows of all programs on the desktop.
#pragma once

#include <string>
#include <vector>

namespace scrivanta {

std::vector<std::u16string> TopLevelWindowTitles();

}  // namespace scrivanta
