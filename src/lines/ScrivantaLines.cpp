#include "lines/ScrivantaLines.h"

#include "lines/FrmLineDialogs.h"
#include "lines/LineCommands.h"

namespace scrivanta {

std::unique_ptr<Subsystem> OpenLines(const SubsystemHost& host) {
  auto subsystem = std::make_unique<SubsystemOf<FrmLineDialogs>>(host.windows, host.mainWindow);
  RegisterLineCommands(host.commands, subsystem->dialogs);
  return subsystem;
}

}  // namespace scrivanta
