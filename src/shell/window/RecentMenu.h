// What stands at the end of the menu of the file: the documents used last.
#pragma once

#include <vector>

#include "shell/document/DocumentFile.h"
#include "shell/window/MenuChoice.h"
#include "shell/window/RecentDocuments.h"
#include "shell/workbench/Prompts.h"

namespace scrivanta {

// Empty when no document has been used yet. All outlive the choices.
std::vector<MenuChoice> RecentChoices(RecentDocuments& recent, DocumentFile& document, Prompts& prompts);

}  // namespace scrivanta
