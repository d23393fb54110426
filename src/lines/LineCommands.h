#pragma once

#include "lines/LineDialogs.h"
#include "shell/workbench/CommandTable.h"

namespace scrivanta {

// Adds the line commands. The dialogs outlive the table.
void RegisterLineCommands(CommandTable& table, LineDialogs& dialogs);

}  // namespace scrivanta
