// Shortcuts looked through, and what would lead those of them right whose targets have moved.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "system/PathLines.h"
#include "system/folders/Shortcut.h"
#include "text/FileFailure.h"
#include "text/FileWalk.h"
#include "text/Progress.h"

namespace scrivanta {

struct ListedShortcut {
  std::filesystem::path file;
  Shortcut shortcut;
  bool isMissing = false;                  // what it leads to is not there
  std::optional<Shortcut> corrected = {};  // nothing where it stays
  std::u16string remark = {};
};

struct ShortcutList {
  std::vector<ListedShortcut> shortcuts;
  std::vector<FileFailure> failures;
};

// Reads the shortcuts among what was found.
ShortcutList ReadShortcuts(const FoundFiles& found, const ShortcutStore& store, const VariableLookup& variable,
                           Progress& progress);

// Where a target is missing, and a file or folder of its name is found once below the folder, that is its new target.
void CorrectByName(ShortcutList& list, const std::filesystem::path& folder, Progress& progress);
// In target, starting folder and icon the beginning of the path is replaced, letter case set aside, where it ends with
// a part of the path.
void CorrectByBeginning(ShortcutList& list, std::u16string_view from, std::u16string_view to);

// How many would be changed.
std::size_t CountCorrected(const ShortcutList& list);

}  // namespace scrivanta
