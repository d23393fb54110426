#include "printing/ScrivantaPrinting.h"

#include "printing/FrmPrintDialogs.h"
#include "printing/PrintCommands.h"

namespace scrivanta {

namespace {

// In the font of the edit box, where the control does not print by itself.
void PrintRichEdit(EditBox& editBox, Workbench& workbench, const RichEditToPrint& what) {
  FrmPrintDialogs dialogs([&what] { return what.owner; }, [&what] { return what.richEdit; }, editBox);
  PrintUnderName(workbench, dialogs, what.name, {.text = what.text});
}

}  // namespace

std::unique_ptr<Subsystem> OpenPrinting(const SubsystemHost& host) {
  auto subsystem = std::make_unique<SubsystemOf<FrmPrintDialogs>>(host.mainWindow, host.editBoxWindow, host.editBox);
  RegisterPrintCommands(host.commands, subsystem->dialogs);
  host.services.printRichEdit = [&editBox = host.editBox](Workbench& workbench, const RichEditToPrint& what) {
    PrintRichEdit(editBox, workbench, what);
  };
  return subsystem;
}

}  // namespace scrivanta
