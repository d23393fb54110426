#include "lines/LineCommands.h"

#include "lines/CaretHandlers.h"
#include "lines/CleanupHandlers.h"
#include "lines/FilterHandlers.h"
#include "lines/OrderHandlers.h"

namespace scrivanta {

void RegisterLineCommands(CommandTable& table, LineDialogs& dialogs) {
  AddCaretCommands(table);
  AddCleanupCommands(table, dialogs);
  AddFilterCommands(table);
  AddOrderCommands(table, dialogs);
}

}  // namespace scrivanta
