// The menu bar of the main window, built from shell/MenuTree.h.
#pragma once

#include <windows.h>

#include "shell/workbench/CommandTable.h"
#include "win/Handles.h"

namespace scrivanta {

OwnedMenu BuildMainMenu();
OwnedAccelerators BuildAccelerators();

// Enables those entries of the bar's menus whose command is in the table and available now.
void EnableMenuEntries(HMENU bar, const CommandTable& commands, const WorkbenchState& state);

}  // namespace scrivanta
