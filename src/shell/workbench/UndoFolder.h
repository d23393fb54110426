// Where what takes changes outside the document back is kept.
#pragma once

#include <filesystem>

#include "shell/workbench/Workbench.h"

namespace scrivanta {

// Beside the snapshots.
inline std::filesystem::path UndoFolder(const Folders& folders) {
  return folders.recovery.parent_path() / "Undo";
}

}  // namespace scrivanta
