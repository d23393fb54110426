// The snapshots that instances of the program keep of their documents, alive or dead.
#pragma once

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

}  // namespace scrivanta
