// The clean-up commands of the menu.
#pragma once

#include "lines/LineDialogs.h"
#include "shell/workbench/Workbench.h"

namespace scrivanta {

void mnuDelEmptyLine(Workbench& workbench);
void mnuTrimLine(Workbench& workbench);
void mnuDelLineFromXtoY(Workbench& workbench, LineDialogs& dialogs);
void mnuAddTAB(Workbench& workbench);

}  // namespace scrivanta
