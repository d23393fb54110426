// The command line of the program: what follows its name.
#pragma once

#include <string>
#include <string_view>

namespace scrivanta {

// The path of the document to open, empty when there is none: the whole line, without the quotes when it stands in
// quotes.
std::u16string_view DocumentPathOf(std::u16string_view commandLine);

}  // namespace scrivanta
