#pragma once

#include <string_view>

namespace scrivanta {

// Whether a statement, by its first word, only reads: it may then be carried out as often as one likes.
bool OnlyReads(std::u16string_view statement);

}  // namespace scrivanta
