#pragma once

#include <chrono>

#include "shell/workbench/Workbench.h"

namespace scrivanta {

// Between two lines, so that the programs that they open need not all start at once.
inline constexpr std::chrono::milliseconds kPauseBetweenLines{300};

// Opens each line of the selection or the document with its default program.
void mnuRunAllLine(Workbench& workbench, std::chrono::milliseconds pause = kPauseBetweenLines);

}  // namespace scrivanta
