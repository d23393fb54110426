#include "windows/WindowsCommands.h"

#include "windows/desk/WindowsDialog.h"

namespace scrivanta {

void RegisterWindowsCommands(CommandTable& table, WindowsDialogs& dialogs, const DesktopParts& parts) {
  table.Add("mnuZuoBiaoToXiangDuiZuoBiao", {[&dialogs, &places = parts.places](Workbench& workbench) {
              mnuZuoBiaoToXiangDuiZuoBiao(workbench, dialogs, places);
            }});
  table.Add("mnuWindows",
            {[&dialogs, &desk = parts.desk](Workbench& workbench) { mnuWindows(workbench, dialogs, desk); }});
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

void mnuWindows(Workbench& workbench, WindowsDialogs& dialogs, WindowDesk& desk) {
  WindowsDialog dialog(workbench, desk);
  dialogs.ShowWindows(dialog);
}

}  // namespace scrivanta
