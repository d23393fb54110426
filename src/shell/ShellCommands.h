// The commands of the editor itself: documents, clipboard, formats, marks, calculator and help.
#pragma once

#include "shell/CommandTable.h"
#include "shell/MainWindow.h"

namespace scrivanta {

void RegisterShellCommands(CommandTable& table, MainWindow& window);

}  // namespace scrivanta
