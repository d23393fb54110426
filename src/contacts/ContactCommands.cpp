#include "contacts/ContactCommands.h"

#include "contacts/ContactHandlers.h"

namespace scrivanta {

void RegisterContactCommands(CommandTable& table, Spreadsheet& spreadsheet) {
  table.Add("mnuAndroidPhoneBookEncode", {mnuAndroidPhoneBookEncode});
  table.Add("mnuAndroidPhoneBookDecode", {mnuAndroidPhoneBookDecode});
  table.Add("mnuExcelPhoneBookToAndroid",
            {[&spreadsheet](Workbench& workbench) { mnuExcelPhoneBookToAndroid(workbench, spreadsheet); }});
}

}  // namespace scrivanta
