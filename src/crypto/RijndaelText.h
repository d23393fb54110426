// Text under the block cipher: its bytes in code page 936 (GB18030's four-byte forms for what that lacks), filled with
// zeros to whole blocks, as hexadecimal digits.
#pragma once

#include <string>
#include <string_view>

#include "crypto/Rijndael.h"

namespace scrivanta {

// The bytes of a password in code page 936, cut or filled with zeros to 32. A key uses the first of them that it has
// room for, so the rest of a longer password does not count.
std::array<std::uint8_t, 32> PasswordBytes(std::u16string_view password);

// In groups of blockSize bits, at least 8; the cipher's block has 128 whatever it is. A NUL in the text ends it when it
// is decrypted; anything else comes back as it was.
std::u16string EncryptText(const RijndaelKey& key, const RijndaelForm& form, std::u16string_view text, int blockSize);

// Bits of the key and of a group of the hexadecimal text in the window.
inline constexpr int kWindowBits = 256;

// As the window encrypts. Throws ExplainedError for a text with a NUL.
std::u16string EncryptWithDigits(std::u16string_view text, std::u16string_view digits);

// Throws ExplainedError for a text with a NUL, for callers that must not lose what follows it.
void RefuseNul(std::u16string_view text);

struct DecryptedText {
  enum class Outcome {
    kDone,
    kNotHexadecimal,  // there is no pair of digits in it
    kNotWholeBlocks,
    kNotWhole,  // more than padding stands behind the text: not what was encrypted, as a rule by another key
  };

  Outcome outcome = Outcome::kDone;
  std::u16string text;  // of kNotWhole, what stands before the first NUL
};

// Takes hexadecimal text of any grouping, passing over whatever is no digit. An empty text is that of an empty one.
DecryptedText DecryptText(const RijndaelKey& key, const RijndaelForm& form, std::u16string_view ciphertext);

// Whether there is in a text what texts hardly hold and a wrong key soon makes: bytes that are no character, or control
// characters.
bool LooksGarbled(std::u16string_view text);

}  // namespace scrivanta
