#pragma once

#include "shell/workbench/CommandTable.h"
#include "windows/CoordinatesDialog.h"
#include "windows/WindowsDialogs.h"
#include "windows/desk/WindowDesk.h"
#include "windows/input/SendInputDialog.h"

namespace scrivanta {

// The desktop as the commands see it.
struct DesktopParts {
  const WindowPlaces& places;
  InputDevice& input;
  MakeStopKey makeStopKey;
  WindowDesk& desk;
};

void RegisterWindowsCommands(CommandTable& table, WindowsDialogs& dialogs, const DesktopParts& parts);

void mnuZuoBiaoToXiangDuiZuoBiao(Workbench& workbench, WindowsDialogs& dialogs, const WindowPlaces& places);
void mnuSendInput(Workbench& workbench, WindowsDialogs& dialogs, const DesktopParts& parts);
void mnuWindows(Workbench& workbench, WindowsDialogs& dialogs, WindowDesk& desk);

}  // namespace scrivanta
