#pragma once

#include <string_view>

namespace scrivanta {

// Whether a pattern ends with the escape of a line break, written out: the four characters \r\n. Such a pattern minds
// line breaks itself.
inline bool EndsWithLineBreakEscape(std::u16string_view pattern) {
  return pattern.ends_with(u"\\r\\n");
}

}  // namespace scrivanta
