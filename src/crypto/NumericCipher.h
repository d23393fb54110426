// The light cipher on numbers: every character becomes its code in code page 936, XOR a number made of the key, in
// decimal. It hides text from a glance only: the key falls out of one known character.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace scrivanta {

// The digits of a number, the most significant first: 0 to 9, then A onwards. base is 2 to 36.
std::u16string ToBase(std::uint64_t number, unsigned base);

// The largest key: with it the number that the codes are combined with still has 31 bits.
inline constexpr std::uint64_t kLargestNumericKey = 02147477777;

// Whether a key can be used at all: digits, and no more of them than the cipher takes. Throws ExplainedError otherwise.
std::uint64_t NumericKey(std::u16string_view digits);

// The numbers, separated by single spaces. Throws ExplainedError for a character that code page 936 lacks: it has no
// code of 16 bits. The key is at most kLargestNumericKey.
std::u16string TextEncrypt(std::u16string_view text, std::uint64_t key);
// Nothing when the text is no list of numbers separated by single spaces, or when a number belongs to no character
// under any reading of the key. A wrong key is not noticed: it gives wrong characters.
std::optional<std::u16string> TextDecrypt(std::u16string_view text, std::uint64_t key);

}  // namespace scrivanta
