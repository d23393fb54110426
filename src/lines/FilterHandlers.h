// The commands of the menu that divide lines into groups.
#pragma once

#include "shell/workbench/CommandTable.h"

namespace scrivanta {

void AddFilterCommands(CommandTable& table);

}  // namespace scrivanta
