// Indents of paragraphs as an edit control writes them that takes \\li and \\fi for what it keeps itself (Rich Text
// Format 1.9): behind \\fi where the first line begins, behind \\li how much farther the others do.
#pragma once

#include <string>
#include <string_view>

namespace scrivanta {

// With where the lines begin behind \\li, and how much farther the first does behind \\fi.
std::string WithIndentsOfLines(std::string_view rtf);

}  // namespace scrivanta
