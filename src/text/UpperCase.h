// Letter case, the same on every system and in every locale.
#pragma once

#include <string>
#include <string_view>

namespace scrivanta {

// A character that has no upper case of one character is its own.
char16_t UpperCase(char16_t c) noexcept;
std::u16string UpperCase(std::u16string_view text);

}  // namespace scrivanta
