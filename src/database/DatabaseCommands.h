#pragma once

#include "database/DatabaseDialogs.h"
#include "shell/workbench/CommandTable.h"

namespace scrivanta {

void mnuDatabase(Workbench& workbench, DatabaseDialogs& dialogs);

// Adds the commands of the database exchange. The dialogs outlive the table.
void RegisterDatabaseCommands(CommandTable& table, DatabaseDialogs& dialogs);

}  // namespace scrivanta
