#include "tables/TableCommands.h"

namespace scrivanta {

void RegisterTableCommands(CommandTable&, TableDialogs&) {}

}  // namespace scrivanta
