#include "tables/TableCommands.h"

#include "tables/FenLanHandler.h"
#include "tables/FileHandlers.h"
#include "tables/JoinHandler.h"
#include "tables/SdfHandler.h"

namespace scrivanta {

void RegisterTableCommands(CommandTable& table, TableDialogs& dialogs) {
  table.Add("mnuFenLan", {[&dialogs](Workbench& workbench) { mnuFenLan(workbench, dialogs); }});
  table.Add("mnuChangeToSDFFile", {[&dialogs](Workbench& workbench) { mnuChangeToSDFFile(workbench, dialogs); }});
  table.Add("mnuDataGuanLianHeBin", {[&dialogs](Workbench& workbench) { mnuDataGuanLianHeBin(workbench, dialogs); }});
  table.Add("mnuMergeFile", {[&dialogs](Workbench& workbench) { mnuMergeFile(workbench, dialogs); }});
  table.Add("mnuJiaZiMu", {[&dialogs](Workbench& workbench) { mnuJiaZiMu(workbench, dialogs); }});
  table.Add("mnuXunLeiXiaZaiList", {mnuXunLeiXiaZaiList});
}

}  // namespace scrivanta
