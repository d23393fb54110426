// Searching across files from the window: what is asked for, and where the report goes.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "search/FileReport.h"
#include "search/FileSearch.h"
#include "shell/workbench/Workbench.h"

namespace scrivanta {

// Asks for the folder to search, beginning at the last answer; empty when the user cancels.
std::filesystem::path AskForFolderToSearch(Workbench& workbench);

// Asks for the names of the files to search, with the last answer as preset; empty when the user cancels.
std::u16string AskForFileFilter(Workbench& workbench);

// The paths in the lines that the selection touches, or in all lines where nothing is selected.
std::vector<std::filesystem::path> PathsInEditor(const Editor& editor, PathLines which);

// Searches and puts the report behind the text of the document, selected; then says that all is done. The formatting of
// the document stays.
void SearchAndReport(Workbench& workbench, const std::vector<std::filesystem::path>& places, const FileFilter& filter,
                     const FindState& state);

}  // namespace scrivanta
