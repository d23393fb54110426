// Encoded text taken character by character, without decoding it.
#pragma once

#include <cstddef>
#include <string_view>

#include "text/Encoding.h"

namespace scrivanta {

// How many bytes the character at the front takes; 0 for no bytes. A byte that starts no character is one by itself.
std::size_t CharacterBytes(Encoding encoding, std::string_view bytes);

// Whether a byte of this value may be the second or a later one of a character.
bool MayContinueCharacter(Encoding encoding, unsigned char byte);

}  // namespace scrivanta
