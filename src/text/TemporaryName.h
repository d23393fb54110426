// Names for files that are nobody's yet.
#pragma once

#include <string>

namespace scrivanta {

// A file name that no other program guesses or uses, short enough for every folder.
std::string TemporaryName();

}  // namespace scrivanta
