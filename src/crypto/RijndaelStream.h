// Encrypted files: the blocks of the source one after another, its last one filled with zeros, its very last byte the
// length of the source modulo 16; a source of whole blocks gets a block more for that byte. There is no header and no
// check of the key. Memory is constant whatever the length.
#pragma once

#include "crypto/Rijndael.h"
#include "text/Bytes.h"
#include "text/Progress.h"

namespace scrivanta {

// Throws FileError, Interrupted.
void EncryptStream(const RijndaelKey& key, const RijndaelForm& form, ByteSource& source, ByteSink& sink,
                   Progress& progress);

enum class DecryptOutcome {
  kDone,
  kWrongSize,         // no ciphertext: empty, or no whole number of blocks
  kWrongLengthField,  // in all likelihood the wrong key; all blocks have been written as they were decrypted
};

// A wrong size is found before anything is written where the source knows its size, else at its end. Throws FileError,
// Interrupted.
DecryptOutcome DecryptStream(const RijndaelKey& key, const RijndaelForm& form, ByteSource& source, ByteSink& sink,
                             Progress& progress);

bool IsCiphertextSize(std::uint64_t size) noexcept;

}  // namespace scrivanta
