#pragma once

#include "shell/workbench/CommandTable.h"
#include "system/SystemDialogs.h"

namespace scrivanta {

void RegisterSystemCommands(CommandTable& table, SystemDialogs& dialogs);

void mnuChangeDiretryFileTime(Workbench& workbench, SystemDialogs& dialogs);

}  // namespace scrivanta
