// The search commands of the menu.
#pragma once

#include "search/FindState.h"
#include "search/SearchDialogs.h"
#include "shell/workbench/CommandTable.h"

namespace scrivanta {

void mnuFindNext(Workbench& workbench, FindState& state);
void mnuFindPrevious(Workbench& workbench, FindState& state);
void mnufindall(Workbench& workbench, const FindState& state);
void mnuGoToThis(Workbench& workbench);
void mnuFindInFile(Workbench& workbench);
void mnuRegGet(Workbench& workbench);
void mnuRegReplace(Workbench& workbench);

// The dialogs outlive the table.
void RegisterSearchCommands(CommandTable& table, SearchDialogs& dialogs);

}  // namespace scrivanta
