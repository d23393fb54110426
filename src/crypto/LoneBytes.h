// Bytes that were no character in the encoding they came in (U+DC00 + byte), on their way through code page 936. What
// is no character in UTF-8 can be one there together with what follows it: C4 and E3 become a character.
#pragma once

#include <string>
#include <string_view>

namespace scrivanta {

// The text with a control character, U+001F, between such a byte and what would make a character of it. Where such
// controls stand there already, one is added.
std::u16string WithLoneBytesApart(std::u16string_view text);
// What WithLoneBytesApart was given.
std::u16string WithLoneBytesTogether(std::u16string_view text);

}  // namespace scrivanta
