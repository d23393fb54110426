// The companion's side: a database behind ODBC for a program of another width, whose drivers this one sees.
#pragma once

#include "database/PipeMessage.h"

namespace scrivanta {

// Does what the channel asks until the other side goes. What is not committed then is taken back.
void ServeDatabase(PipeChannel& channel);

}  // namespace scrivanta
