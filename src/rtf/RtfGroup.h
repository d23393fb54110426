// Where groups of a rich text end (Rich Text Format 1.9), found without reading what is in them.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace scrivanta {

// Behind the brace that closes the first group; nothing when that is not closed.
std::optional<std::size_t> EndOfGroup(std::string_view rtf);

// Whether the bytes are one group and no more: not so when whoever wrote them has stopped in their midst.
bool IsWholeRtf(std::string_view rtf);

}  // namespace scrivanta
