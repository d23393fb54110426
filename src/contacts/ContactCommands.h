#pragma once

#include "contacts/Spreadsheet.h"
#include "shell/workbench/CommandTable.h"

namespace scrivanta {

// The spreadsheet outlives the table.
void RegisterContactCommands(CommandTable& table, Spreadsheet& spreadsheet);

}  // namespace scrivanta
