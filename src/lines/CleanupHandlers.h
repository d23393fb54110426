// The clean-up commands of the menu.
#pragma once

#include "lines/LineDialogs.h"
#include "shell/workbench/CommandTable.h"

namespace scrivanta {

// The dialogs outlive the table.
void AddCleanupCommands(CommandTable& table, LineDialogs& dialogs);

}  // namespace scrivanta
