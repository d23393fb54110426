// QUOTED-PRINTABLE (RFC 2045, section 6.7) as cards use it.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace scrivanta {

// "=XX" becomes a byte, in either case of the digits; whatever is no such sequence stays as it is. Soft line breaks
// have been taken out before.
std::string DecodeQuotedPrintable(std::string_view encoded);

// Every byte as "=XX", as phones write it.
void EncodeQuotedPrintableAppend(std::string_view bytes, std::string& encoded);

// An encoded value behind the first `column` bytes of a line, with soft line breaks ("=" CR LF) so that no line has
// more than 76 bytes. No break stands inside a character of UTF-8, before a ";" or at the end.
std::string FoldQuotedPrintable(std::string_view encoded, std::size_t column);

}  // namespace scrivanta
