// Paths as people write them into lines.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace scrivanta {

using VariableLookup = std::function<std::optional<std::u16string>(std::u16string_view name)>;

// "%NAME%" becomes the variable's value where there is one.
std::u16string WithVariables(std::u16string_view text, const VariableLookup& variable);

// The lines of a text, without blanks and quotation marks around them; empty ones left out.
std::vector<std::filesystem::path> PathsOfLines(std::u16string_view text);

}  // namespace scrivanta
