// The search commands of the menu.
#pragma once

#include "search/SearchDialogs.h"
#include "shell/workbench/CommandTable.h"

namespace scrivanta {

// The dialogs are there whenever a command of the table runs; their windows go before the table does.
void RegisterSearchCommands(CommandTable& table, SearchDialogs& dialogs);

}  // namespace scrivanta
