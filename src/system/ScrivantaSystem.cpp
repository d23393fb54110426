#include "system/ScrivantaSystem.h"

#include "system/FrmSystemDialogs.h"
#include "system/SystemCommands.h"
#include "system/folders/ScrivantaShortcuts.h"
#include "system/registry/ScrivantaRegistryKeys.h"

namespace scrivanta {

namespace {

struct System final : Subsystem {
  explicit System(const SubsystemHost& host) : dialogs(host.windows, host.mainWindow) {}

  FrmSystemDialogs dialogs;
  ScrivantaRegistryKeys registry;
  ScrivantaSpecialFolders folders;
  ScrivantaShortcuts shortcuts;
};

}  // namespace

std::unique_ptr<Subsystem> OpenSystem(const SubsystemHost& host) {
  auto subsystem = std::make_unique<System>(host);
  RegisterSystemCommands(
      host.commands, subsystem->dialogs,
      {.registry = subsystem->registry, .folders = subsystem->folders, .shortcuts = subsystem->shortcuts});
  return subsystem;
}

}  // namespace scrivanta
