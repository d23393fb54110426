#include "windows/WindowsCommands.h"

namespace scrivanta {

void RegisterWindowsCommands(CommandTable& table, WindowsDialogs& dialogs, const DesktopParts& parts) {
  table.Add("mnuZuoBiaoToXiangDuiZuoBiao", {[&dialogs, &places = parts.places](Workbench& workbench) {
              mnuZuoBiaoToXiangDuiZuoBiao(workbench, dialogs, places);
            }});
  table.Add("mnuSendInput", {[&dialogs, parts](Workbench& workbench) { mnuSendInput(workbench, dialogs, parts); }});
}

void mnuZuoBiaoToXiangDuiZuoBiao(Workbench& workbench, WindowsDialogs& dialogs, const WindowPlaces& places) {
  CoordinatesDialog dialog(workbench, CaptureInput(workbench), places);
  dialogs.ShowCoordinates(dialog);
}

void mnuSendInput(Workbench& workbench, WindowsDialogs& dialogs, const DesktopParts& parts) {
  SendInputDialog dialog(workbench, parts.input, parts.makeStopKey);
  dialogs.ShowSendInput(dialog);
}

}  // namespace scrivanta
