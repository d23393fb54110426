#include "lines/LineCommands.h"

#include "lines/CaretHandlers.h"
#include "lines/CleanupHandlers.h"
#include "lines/FilterHandlers.h"
#include "lines/OrderHandlers.h"

namespace scrivanta {

void RegisterLineCommands(CommandTable& table, LineDialogs& dialogs) {
  table.Add("mnuGotoLine", {mnuGotoLine});
  table.Add("mnuCopyAboveChar", {mnuCopyAboveChar});
  table.Add("mnuDelEmptyLine", {mnuDelEmptyLine});
  table.Add("mnuTrimLine", {mnuTrimLine});
  table.Add("mnuDelLineFromXtoY", {[&dialogs](Workbench& workbench) { mnuDelLineFromXtoY(workbench, dialogs); }});
  table.Add("mnuAddTAB", {mnuAddTAB});
  table.Add("mnuFilterNeedLine", {mnuFilterNeedLine});
  table.Add("mnuFilterRepeatLine", {mnuFilterRepeatLine});
  table.Add("mnuFilterContinueRepeatLine", {mnuFilterContinueRepeatLine});
  table.Add("mnuSort", {[&dialogs](Workbench& workbench) { mnuSort(workbench, dialogs); }});
  table.Add("mnuRandOrder", {mnuRandOrder});
  table.Add("mnuStatistics", {mnuStatistics});
}

}  // namespace scrivanta
