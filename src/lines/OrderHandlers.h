// The commands of the menu that put lines into another order, and the one that counts them.
#pragma once

#include "lines/LineDialogs.h"
#include "shell/workbench/Workbench.h"

namespace scrivanta {

void mnuSort(Workbench& workbench, LineDialogs& dialogs);
void mnuRandOrder(Workbench& workbench);
void mnuStatistics(Workbench& workbench);

}  // namespace scrivanta
