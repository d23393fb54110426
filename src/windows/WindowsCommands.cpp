#include "windows/WindowsCommands.h"

namespace scrivanta {

void RegisterWindowsCommands(CommandTable& table, WindowsDialogs& dialogs, const WindowPlaces& places) {
  table.Add("mnuZuoBiaoToXiangDuiZuoBiao",
            {[&dialogs, &places](Workbench& workbench) { mnuZuoBiaoToXiangDuiZuoBiao(workbench, dialogs, places); }});
}

void mnuZuoBiaoToXiangDuiZuoBiao(Workbench& workbench, WindowsDialogs& dialogs, const WindowPlaces& places) {
  CoordinatesDialog dialog(workbench, CaptureInput(workbench), places);
  dialogs.ShowCoordinates(dialog);
}

}  // namespace scrivanta
