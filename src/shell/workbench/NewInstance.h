// Another window of the program is another process of it.
#pragma once

#include <filesystem>

#include "shell/workbench/Workbench.h"

namespace scrivanta {

// Opens the document there, an empty window for an empty path. Throws FileError.
void StartInstance(Workbench& workbench, const std::filesystem::path& document);

}  // namespace scrivanta
