// The encodings of files, and text between them and the program's UTF-16.
#pragma once

#include <string>
#include <string_view>

namespace scrivanta {

// Of lines and of console input and output. In both, the carriage return, the line feed, the tab, the space and the NUL
// are single bytes that are never part of another character, so a line can be split and trimmed as bytes.
enum class Encoding {
  kGbk,  // code page 936, with GB18030's four-byte forms for what it lacks
  kUtf8,
};

// Total and reversible: bytes that are no text in the encoding come out as the lone surrogates U+DC80 to U+DCFF and go
// back to the same bytes.
std::u16string Decode(Encoding encoding, std::string_view bytes);
std::string Encode(Encoding encoding, std::u16string_view text);

// The same, appended; for loops that keep their buffer.
void DecodeAppend(Encoding encoding, std::string_view bytes, std::u16string& text);
void EncodeAppend(Encoding encoding, std::u16string_view text, std::string& bytes);

}  // namespace scrivanta
