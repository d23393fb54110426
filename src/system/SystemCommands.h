#pragma once

#include "shell/workbench/CommandTable.h"
#include "system/SystemDialogs.h"
#include "system/folders/FoldersDialog.h"
#include "system/registry/RegistryKeys.h"

namespace scrivanta {

// What the commands look at and change; it outlives the table.
struct SystemParts {
  RegistryKeys& registry;
  const SpecialFolders& folders;
  const ShortcutStore& shortcuts;
};

void RegisterSystemCommands(CommandTable& table, SystemDialogs& dialogs, const SystemParts& parts);

void mnuChangeDiretryFileTime(Workbench& workbench, SystemDialogs& dialogs);
void mnuFolders(Workbench& workbench, SystemDialogs& dialogs, const SpecialFolders& folders,
                const ShortcutStore& shortcuts);
void mnuRegistry(Workbench& workbench, SystemDialogs& dialogs, RegistryKeys& registry);

}  // namespace scrivanta
