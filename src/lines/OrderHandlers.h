// The commands of the menu that put lines into another order, and the one that counts them.
#pragma once

#include "lines/LineDialogs.h"
#include "shell/workbench/CommandTable.h"

namespace scrivanta {

// The dialogs outlive the table.
void AddOrderCommands(CommandTable& table, LineDialogs& dialogs);

}  // namespace scrivanta
