#include "database/DatabaseCommands.h"

#include "database/DatabaseDialog.h"

namespace scrivanta {

void mnuDatabase(Workbench& workbench, DatabaseDialogs& dialogs) {
  DatabaseDialog dialog(workbench);
  dialogs.ShowDatabase(dialog);
}

void RegisterDatabaseCommands(CommandTable& table, DatabaseDialogs& dialogs) {
  table.Add("mnuDatabase", {[&dialogs](Workbench& workbench) { mnuDatabase(workbench, dialogs); }});
}

}  // namespace scrivanta
