// The commands on phone books. Each asks before it joins duplicates and before it replaces a file, and shows at its end
// how many contacts and numbers there were, and what was not understood.
#pragma once

#include "contacts/Spreadsheet.h"
#include "shell/workbench/Workbench.h"

namespace scrivanta {

// Card files become a sheet, which its program opens; where none does, the table becomes a new document.
void mnuAndroidPhoneBookEncode(Workbench& workbench);
// The table in the document, or in the selection, becomes a card file.
void mnuAndroidPhoneBookDecode(Workbench& workbench);
// The sheet in front in the spreadsheet program becomes a card file; where there is none, a sheet file that is chosen.
void mnuExcelPhoneBookToAndroid(Workbench& workbench, Spreadsheet& spreadsheet);

}  // namespace scrivanta
