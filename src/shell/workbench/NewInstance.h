// Another window of the program is another process of it.
#pragma once

#include <filesystem>

#include "shell/workbench/Workbench.h"

namespace scrivanta {

// Opens the document there, an empty window for an empty path, with the caret in a line, counted from 1. Throws
// FileError.
void StartInstance(Workbench& workbench, const std::filesystem::path& document, long long line = 1);

}  // namespace scrivanta
