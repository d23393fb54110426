#include "tables/ScrivantaTables.h"

#include "tables/FrmTableDialogs.h"
#include "tables/TableCommands.h"

namespace scrivanta {

std::unique_ptr<Subsystem> OpenTables(const SubsystemHost& host) {
  auto subsystem = std::make_unique<SubsystemOf<FrmTableDialogs>>(host.windows, host.mainWindow);
  RegisterTableCommands(host.commands, subsystem->dialogs);
  return subsystem;
}

}  // namespace scrivanta
