// Why a command cannot be chosen just now, in words for the status bar.
#pragma once

#include <string>
#include <string_view>

#include "shell/workbench/CommandTable.h"

namespace scrivanta {

bool CanRun(const CommandTable& commands, std::string_view controlName, const WorkbenchState& state);

// Empty when it can.
std::u16string WhyUnavailable(const CommandTable& commands, std::string_view controlName, const WorkbenchState& state);

}  // namespace scrivanta
