#include "lines/LineCommands.h"

#include "lines/CaretHandlers.h"
#include "lines/CleanupHandlers.h"

namespace scrivanta {

void RegisterLineCommands(CommandTable& table, LineDialogs& dialogs) {
  table.Add("mnuGotoLine", {mnuGotoLine});
  table.Add("mnuCopyAboveChar", {mnuCopyAboveChar});
  table.Add("mnuDelEmptyLine", {mnuDelEmptyLine});
  table.Add("mnuTrimLine", {mnuTrimLine});
  table.Add("mnuDelLineFromXtoY", {[&dialogs](Workbench& workbench) { mnuDelLineFromXtoY(workbench, dialogs); }});
  table.Add("mnuAddTAB", {mnuAddTAB});
}

}  // namespace scrivanta
