// UTF-8 (RFC 3629), made total as Encoding.h says. Encoding.h is what the rest of the program uses.
//
// A byte that starts no character becomes the lone surrogate U+DC00 + byte and goes back to that byte; after it reading
// goes on at the next byte. The other lone surrogates travel in the three bytes that their number has in UTF-8's
// pattern. Bytes to text to bytes is the identity for all bytes; text to bytes to text is it for all texts that hold no
// U+DC80 to U+DCFF of their own.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace scrivanta {

// How many bytes from the beginning are well-formed, and how many characters of three bytes or more they make.
struct Utf8Extent {
  std::size_t bytes = 0;
  std::size_t longCharacters = 0;
};
Utf8Extent MeasureUtf8(std::string_view bytes);

// Whether the bytes are the beginning of one character of three bytes or more, and nothing else.
bool IsCutOffInUtf8(std::string_view bytes);

void DecodeUtf8Append(std::string_view bytes, std::u16string& text);
void EncodeUtf8Append(std::u16string_view text, std::string& bytes);

}  // namespace scrivanta
