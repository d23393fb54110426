// The blanks between the fields of a table: spaces, tabs and full-width spaces.
#pragma once

#include <cstddef>
#include <string_view>

#include "text/Encoding.h"

namespace scrivanta {

// How many bytes the blank at the front takes; 0 when there stands none.
std::size_t BlankBytes(Encoding encoding, std::string_view text);
// The text without the blanks at its front.
std::string_view SkipBlanks(Encoding encoding, std::string_view text);
// Where the first blank stands, in bytes from 0; the length of the text when it has none.
std::size_t FindBlank(Encoding encoding, std::string_view text);

}  // namespace scrivanta
