// Names in the order that people expect: "2" before "10".
#pragma once

#include <filesystem>
#include <string_view>
#include <vector>

namespace scrivanta {

// Runs of digits are compared as numbers, whatever their length, everything else without regard to letter case; names
// that are alike in this by their codes.
bool NaturalLess(std::u16string_view left, std::u16string_view right);

// By the whole paths.
void SortNaturally(std::vector<std::filesystem::path>& paths);

}  // namespace scrivanta
