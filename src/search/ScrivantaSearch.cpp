#include "search/ScrivantaSearch.h"

#include "search/FrmSearchDialogs.h"
#include "search/SearchCommands.h"

namespace scrivanta {

std::unique_ptr<Subsystem> OpenSearch(const SubsystemHost& host) {
  auto subsystem = std::make_unique<SubsystemOf<FrmSearchDialogs>>(host.windows, host.mainWindow);
  RegisterSearchCommands(host.commands, subsystem->dialogs);
  return subsystem;
}

}  // namespace scrivanta
