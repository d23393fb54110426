#pragma once

#include "shell/workbench/Workbench.h"
#include "system/registry/RegistryKeys.h"

namespace scrivanta {

// The references of projects that the user chooses, as a table in place of the selection.
void mnuVBreferences(Workbench& workbench, const RegistryKeys& keys);
// The type libraries that are registered, likewise.
void mnuTypeLibraries(Workbench& workbench, const RegistryKeys& keys);

}  // namespace scrivanta
