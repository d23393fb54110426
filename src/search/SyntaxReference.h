#pragma once

#include <string_view>

namespace scrivanta {

// The syntax of patterns, a line a construct: the construct, four blanks, what it means; then two long sections. Lines
// end with CR LF.
extern const std::u16string_view kSyntaxReference;

}  // namespace scrivanta
