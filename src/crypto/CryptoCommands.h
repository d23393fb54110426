#pragma once

#include "crypto/CryptoDialogs.h"
#include "shell/workbench/CommandTable.h"

namespace scrivanta {

// Adds the encrypting commands. The dialogs outlive the table and every document that the commands have opened.
void RegisterCryptoCommands(CommandTable& table, CryptoDialogs& dialogs);

}  // namespace scrivanta
