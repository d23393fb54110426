// Text on its way into rich text (RTF 1.9).
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace scrivanta {

// \ { and } are escaped, every line break (CR LF, or either alone) becomes "\line ".
std::u16string RtfEscapeText(std::u16string_view text);

// What is not ASCII is escaped: a character of code page 936 by the two bytes of its code (\'d6\'d0), any other by
// its number (\u233?), so that nothing is lost. For text under \uc1 in a font of the character set 134.
std::string RtfHexEscape(std::u16string_view text);

// The same for any place of a rich text: by bytes only where the character set is 134, and with as many characters to
// skip behind \uN as \ucN says there.
std::string RtfHexEscape(std::u16string_view text, bool isChineseCharset, std::size_t skippedAfterUnicode);

// A whole rich text, black, that shows this text line by line.
std::string RtfDocumentFromText(std::u16string_view text);

}  // namespace scrivanta
