// The commands of the menu that act where the caret is.
#pragma once

#include "shell/workbench/CommandTable.h"

namespace scrivanta {

void AddCaretCommands(CommandTable& table);

}  // namespace scrivanta
