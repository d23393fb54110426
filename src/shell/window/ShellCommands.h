// The commands of the editor itself: documents, clipboard, formats, marks, calculator and help.
#pragma once

#include "shell/window/MainWindow.h"
#include "shell/workbench/CommandTable.h"

namespace scrivanta {

void RegisterShellCommands(CommandTable& table, MainWindow& window);

}  // namespace scrivanta
