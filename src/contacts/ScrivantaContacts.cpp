#include "contacts/ScrivantaContacts.h"

#include "contacts/ContactCommands.h"
#include "contacts/ScrivantaSpreadsheet.h"

namespace scrivanta {

std::unique_ptr<Subsystem> OpenContacts(const SubsystemHost& host) {
  auto subsystem = std::make_unique<SubsystemOf<ScrivantaSpreadsheet>>();
  RegisterContactCommands(host.commands, subsystem->dialogs);
  return subsystem;
}

}  // namespace scrivanta
