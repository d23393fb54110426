// The commands of the editor itself: documents, clipboard, formats, marks, calculator and help.
#pragma once

#include "shell/workbench/CommandTable.h"
#include "shell/window/MainWindow.h"

namespace scrivanta {

void RegisterShellCommands(CommandTable& table, MainWindow& window);

}  // namespace scrivanta
