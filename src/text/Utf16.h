// UTF-16 as bytes.
#pragma once

#include <string>
#include <string_view>

namespace scrivanta {

enum class ByteOrder { kLittleEndian, kBigEndian };

// A last byte that is half a unit becomes the lone surrogate that stands for a byte, as in Decode.
std::u16string DecodeUtf16(ByteOrder order, std::string_view bytes);
// Every unit as it stands, surrogates included.
void EncodeUtf16Append(ByteOrder order, std::u16string_view text, std::string& bytes);

}  // namespace scrivanta
