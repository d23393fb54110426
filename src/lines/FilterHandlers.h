// The commands of the menu that divide lines into groups.
#pragma once

#include "shell/workbench/Workbench.h"

namespace scrivanta {

void mnuFilterNeedLine(Workbench& workbench);
void mnuFilterRepeatLine(Workbench& workbench);
void mnuFilterContinueRepeatLine(Workbench& workbench);

}  // namespace scrivanta
