// Texts and files sealed under a password: whoever lacks it can neither read nor change them unnoticed. The format is
// described in docs/CIPHERS.md; what comes out is plain ASCII (Armor.h).
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "text/Bytes.h"
#include "text/Progress.h"

namespace scrivanta {

// What it costs to make the key out of the password, for whoever tries passwords too (Argon2id, RFC 9106, one lane).
struct SealingCost {
  std::uint32_t passes = 3;
  std::uint32_t kibibytes = 64 * 1024;
};

// The password's characters count as they are typed. Memory is constant whatever the length, beside what the cost says.
// Throws ExplainedError when that memory cannot be had; FileError, Interrupted.
void Seal(std::u16string_view password, ByteSource& source, ByteSink& sink, Progress& progress, SealingCost cost = {});

// Writes what was sealed, a part as soon as it has been proven right; when it throws, what was written is to be
// dropped. Throws ExplainedError for what is no sealed text, or one of a version or a cost beyond what is read here (16
// passes, 1 GiB), for a wrong password and for what was changed, cut or added to since; FileError, Interrupted.
void Unseal(std::u16string_view password, ByteSource& source, ByteSink& sink, Progress& progress);

// Whether the text begins as a sealed one, blanks and empty lines before it aside.
bool LooksSealed(std::u16string_view text);

// A text of a document or a part of one. Without a line end behind the last line.
std::u16string SealText(std::u16string_view text, std::u16string_view password);
// Also what was sealed as a file: it is recognised as a document is. Throws as Unseal.
std::u16string UnsealText(std::u16string_view sealed, std::u16string_view password);

}  // namespace scrivanta
