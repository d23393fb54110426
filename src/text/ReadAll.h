// Reading what is processed as a whole.
#pragma once

#include <string>

#include "text/Bytes.h"
#include "text/Progress.h"

namespace scrivanta {

// All that is left of a source, in memory. Throws FileError, Interrupted.
std::string ReadAll(ByteSource& source, Progress& progress);

}  // namespace scrivanta
