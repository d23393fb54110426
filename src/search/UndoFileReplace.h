// The way back from what was replaced in files last.
#pragma once

#include <filesystem>

#include "shell/workbench/CommandTable.h"
#include "shell/workbench/Workbench.h"

namespace scrivanta {

// Where the window keeps the files as they were (see KeptFiles.h).
std::filesystem::path KeptFolder(const Folders& folders);

// Registers mnuUndoFileReplace, which is there while something is kept. The folders outlive the table.
void RegisterUndoFileReplace(CommandTable& table, const Folders& folders);

}  // namespace scrivanta
