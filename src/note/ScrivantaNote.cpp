#include "note/ScrivantaNote.h"

#include "note/FrmNotes.h"

namespace scrivanta {

std::unique_ptr<Subsystem> OpenNote(const SubsystemHost& host) {
  auto notes = std::make_unique<FrmNotes>(host.windows);
  host.commands.Add("mnuNote", {[&desk = *notes](Workbench& workbench) { desk.mnuNote(workbench); }});
  host.commands.Add("mnuSelectionToNote",
                    {[&desk = *notes](Workbench& workbench) { desk.mnuSelectionToNote(workbench); }});
  return notes;
}

}  // namespace scrivanta
