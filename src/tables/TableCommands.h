#pragma once

#include "shell/workbench/CommandTable.h"
#include "tables/TableDialogs.h"

namespace scrivanta {

// Adds the commands that work on tables. The dialogs outlive the table of commands.
void RegisterTableCommands(CommandTable& table, TableDialogs& dialogs);

}  // namespace scrivanta
