#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace scrivanta {

// A variable of the process's environment; nothing when it is not set.
std::optional<std::u16string> EnvironmentText(std::u16string_view name);

}  // namespace scrivanta
