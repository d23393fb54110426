#include "printing/ScrivantaPrinting.h"

#include "printing/FrmPrintDialogs.h"
#include "printing/PrintCommands.h"

namespace scrivanta {

std::unique_ptr<Subsystem> OpenPrinting(const SubsystemHost& host) {
  auto subsystem = std::make_unique<SubsystemOf<FrmPrintDialogs>>(host.mainWindow, host.editBoxWindow, host.editBox);
  RegisterPrintCommands(host.commands, subsystem->dialogs);
  return subsystem;
}

}  // namespace scrivanta
