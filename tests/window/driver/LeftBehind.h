// What instances of the program keep beside their settings, alive or dead: snapshots of their documents, notes, and
// files as they were.
#pragma once

#include <filesystem>
#include <optional>

#include "shell/document/Snapshot.h"
#include "shell/workbench/Prompts.h"

namespace scrivanta {

// The newest there is, of whatever instance.
std::optional<Snapshot> NewestSnapshot();
Snapshot WaitForSnapshot();
// What the program asks when it finds it.
Message QuestionAboutLeftBehind(const Snapshot& snapshot);
// As on a machine where every document has been saved. Those of processes that live stay.
void ForgetSnapshots();

// Of the floating notes, which all instances share.
std::filesystem::path NotesFolder();
void ForgetNotes();

// As on a machine where nothing has been replaced in files.
void ForgetReplacedFiles();

}  // namespace scrivanta
