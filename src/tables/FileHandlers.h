// Commands that get their text out of files, or add to its lines what the characters say.
#pragma once

#include "shell/workbench/Workbench.h"
#include "tables/TableDialogs.h"

namespace scrivanta {

void mnuMergeFile(Workbench& workbench, TableDialogs& dialogs);
void mnuJiaZiMu(Workbench& workbench, TableDialogs& dialogs);
void mnuXunLeiXiaZaiList(Workbench& workbench);

}  // namespace scrivanta
