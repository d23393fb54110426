// Names for files that are nobody's yet.
#pragma once

#include <string>
#include <string_view>

namespace scrivanta {

// A file name that no other program guesses or uses, short enough for every folder.
std::string TemporaryName();
bool IsTemporaryName(std::u16string_view name);

}  // namespace scrivanta
