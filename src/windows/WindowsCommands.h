#pragma once

#include "shell/workbench/CommandTable.h"
#include "windows/CoordinatesDialog.h"
#include "windows/WindowsDialogs.h"

namespace scrivanta {

void RegisterWindowsCommands(CommandTable& table, WindowsDialogs& dialogs, const WindowPlaces& places);

void mnuZuoBiaoToXiangDuiZuoBiao(Workbench& workbench, WindowsDialogs& dialogs, const WindowPlaces& places);

}  // namespace scrivanta
