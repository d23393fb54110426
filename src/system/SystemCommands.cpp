#include "system/SystemCommands.h"

#include "system/FileTimesDialog.h"
#include "system/RunLinesHandler.h"
#include "system/projects/ReferenceHandlers.h"
#include "system/registry/RegistryDialog.h"

namespace scrivanta {

void RegisterSystemCommands(CommandTable& table, SystemDialogs& dialogs, const SystemParts& parts) {
  table.Add("mnuRunAllLine", {[](Workbench& workbench) { mnuRunAllLine(workbench); }});
  table.Add("mnuChangeDiretryFileTime",
            {[&dialogs](Workbench& workbench) { mnuChangeDiretryFileTime(workbench, dialogs); }});
  RegistryKeys& registry = parts.registry;
  table.Add("mnuVBreferences", {[&registry](Workbench& workbench) { mnuVBreferences(workbench, registry); }});
  table.Add("mnuTypeLibraries", {[&registry](Workbench& workbench) { mnuTypeLibraries(workbench, registry); }});
  table.Add("mnuRegistry",
            {[&dialogs, &registry](Workbench& workbench) { mnuRegistry(workbench, dialogs, registry); }});
  table.Add("mnuFolders", {[&dialogs, parts](Workbench& workbench) {
              mnuFolders(workbench, dialogs, parts.folders, parts.shortcuts);
            }});
}

void mnuChangeDiretryFileTime(Workbench& workbench, SystemDialogs& dialogs) {
  FileTimesDialog dialog(workbench, SystemFileTimes(), SystemTimeZone());
  dialogs.ShowFileTimes(dialog);
}

void mnuFolders(Workbench& workbench, SystemDialogs& dialogs, const SpecialFolders& folders,
                const ShortcutStore& shortcuts) {
  FoldersDialog dialog(workbench, folders, shortcuts);
  dialogs.ShowFolders(dialog);
}

void mnuRegistry(Workbench& workbench, SystemDialogs& dialogs, RegistryKeys& registry) {
  RegistryDialog dialog(workbench, registry);
  dialogs.ShowRegistry(dialog);
}

}  // namespace scrivanta
