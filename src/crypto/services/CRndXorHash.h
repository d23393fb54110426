// The light text cipher with a password check and an integrity check; RndXorHash.h says how little it protects. The
// hexadecimal ciphertext can be pasted anywhere.
#pragma once

#include <filesystem>

#include "crypto/RndXorHash.h"
#include "shell/workbench/Prompts.h"
#include "shell/workbench/Workbench.h"

namespace scrivanta {

class CRndXorHash {
 public:
  // The clock gives the salts, the prompts show what a check has found. Both outlive the object.
  CRndXorHash(Prompts& prompts, const Clock& clock) : prompts_(prompts), clock_(clock) {}

  // The length of every hash, in characters: 8 after creation. Setting it, to 8 as well, makes other hashes than a new
  // object's; a value below 1 means 8.
  std::int16_t KeySize() const noexcept { return cipher_.KeySize(); }
  void KeySize(std::int16_t value) { cipher_.KeySize(value); }

  std::u16string StringEncrypt(std::u16string_view plaintext, std::u16string_view password);
  // Empty after a failed check, which a message tells, and for what is no hexadecimal text, which none tells.
  std::u16string StringDecrypt(std::u16string_view ciphertext, std::u16string_view password);

  // Text files in code page 936. Mind the order: the source comes first here, and second in FileDecrypt. The target is
  // not emptied first. What fails for another reason than a check (a file that cannot be read, say) ends without a
  // word.
  void FileEncrypt(const std::filesystem::path& source, const std::filesystem::path& target,
                   std::u16string_view password);
  // Writes nothing unless both checks pass.
  void FileDecrypt(const std::filesystem::path& target, const std::filesystem::path& source,
                   std::u16string_view password);

 private:
  // Shows what the check has found; true when it has passed.
  bool Passed(RndXorHashCheck check) const;

  Prompts& prompts_;
  const Clock& clock_;
  RndXorHash cipher_;
};

}  // namespace scrivanta
