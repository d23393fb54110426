// Code page 936 (GBK), with GB18030's four-byte forms for what it lacks. Encoding.h is what the rest of the program
// uses.
//
// Both ways are total. A byte that starts no character becomes the lone surrogate U+DC00 + byte and goes back to that
// byte. The other lone surrogates travel in GB18030's user-defined four-byte area, U+D800 as FD 30 81 30 and so on in
// order, so that no text is lost. Bytes to text to bytes is the identity for all bytes; text to bytes to text is it for
// all texts that hold no U+DC81 to U+DCFF of their own.
#pragma once

#include <string>
#include <string_view>

namespace scrivanta {

void DecodeGbkAppend(std::string_view bytes, std::u16string& text);
void EncodeGbkAppend(std::u16string_view text, std::string& bytes);

// Whether other programs that know code page 936 alone would lose characters of the text: whatever takes four bytes
// here, and the few characters to which only GB18030 gives a code of two bytes. Undecodable bytes are not lost.
bool ExceedsCodePage936(std::u16string_view text);

}  // namespace scrivanta
