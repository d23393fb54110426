#include "system/SystemCommands.h"

#include "system/FileTimesDialog.h"
#include "system/RunLinesHandler.h"

namespace scrivanta {

void RegisterSystemCommands(CommandTable& table, SystemDialogs& dialogs) {
  table.Add("mnuRunAllLine", {[](Workbench& workbench) { mnuRunAllLine(workbench); }});
  table.Add("mnuChangeDiretryFileTime",
            {[&dialogs](Workbench& workbench) { mnuChangeDiretryFileTime(workbench, dialogs); }});
}

void mnuChangeDiretryFileTime(Workbench& workbench, SystemDialogs& dialogs) {
  FileTimesDialog dialog(workbench, SystemFileTimes(), SystemTimeZone());
  dialogs.ShowFileTimes(dialog);
}

}  // namespace scrivanta
