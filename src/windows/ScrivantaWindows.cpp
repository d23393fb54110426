#include "windows/ScrivantaWindows.h"

#include "windows/FrmWindowsDialogs.h"
#include "windows/WindowsCommands.h"

namespace scrivanta {

std::unique_ptr<Subsystem> OpenWindows(const SubsystemHost& host) {
  auto subsystem = std::make_unique<SubsystemOf<FrmWindowsDialogs>>(host.windows, host.mainWindow);
  RegisterWindowsCommands(host.commands, subsystem->dialogs, subsystem->dialogs);
  return subsystem;
}

}  // namespace scrivanta
