#include "system/ScrivantaSystem.h"

#include "system/FrmSystemDialogs.h"
#include "system/SystemCommands.h"

namespace scrivanta {

std::unique_ptr<Subsystem> OpenSystem(const SubsystemHost& host) {
  auto subsystem = std::make_unique<SubsystemOf<FrmSystemDialogs>>(host.windows, host.mainWindow);
  RegisterSystemCommands(host.commands, subsystem->dialogs);
  return subsystem;
}

}  // namespace scrivanta
