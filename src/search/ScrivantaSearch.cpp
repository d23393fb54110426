#include "search/ScrivantaSearch.h"

#include "search/FrmSearchDialogs.h"
#include "search/SearchCommands.h"
#include "search/UndoFileReplace.h"

namespace scrivanta {

std::unique_ptr<Subsystem> OpenSearch(const SubsystemHost& host) {
  auto subsystem = std::make_unique<SubsystemOf<FrmSearchDialogs>>(host.windows, host.mainWindow);
  RegisterSearchCommands(host.commands, subsystem->dialogs);
  RegisterUndoFileReplace(host.commands, host.folders);
  return subsystem;
}

}  // namespace scrivanta
