// How the document is shown, whatever it is: its size, wrapping and line numbers. Kept between runs.
#pragma once

#include "shell/window/MainWindow.h"
#include "shell/workbench/CommandTable.h"
#include "shell/workbench/Settings.h"

namespace scrivanta {

// In percent.
int ReadZoom(const Settings& settings);
bool ReadLineNumbers(const Settings& settings);

// The next step of zooming, larger or smaller; the same at either end.
int NextZoom(int percent, bool larger);

void RegisterViewCommands(CommandTable& table, MainWindow& window);

}  // namespace scrivanta
