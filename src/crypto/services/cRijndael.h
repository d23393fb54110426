// The Rijndael cipher on byte arrays, files and text: each block by itself (electronic codebook), so equal blocks look
// equal, and nothing notices a changed one. Text is encrypted as its bytes in code page 936, with GB18030's four-byte
// forms for what that lacks, so any text comes back exactly; only a NUL ends it.
//
// An array of bytes always begins at 0 here. Results are 0 for success unless an operation says otherwise.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "crypto/CipherError.h"
#include "crypto/Octets.h"
#include "crypto/Rijndael.h"
#include "shell/workbench/Prompts.h"

namespace scrivanta {

class cRijndael {
 public:
  // The prompts show what an operation has to tell. Both outlive the object.
  explicit cRijndael(Prompts& prompts, const RijndaelForm& form = FastestRijndael());

  // Sets the key for the array, block and file operations. keyBits is 128, 192 or 256; for any other value no key is
  // set any more and CipherError 1 is thrown. Of pass the first keyBits / 8 bytes are used.
  int SetCipherKey(std::span<const std::uint8_t> pass, int keyBits);
  int SetCipherKeyString(std::u16string_view passPhrase, int keyBits);

  // The 16 bytes at offset p of the one into the 16 at offset q of the other; in place works. Throw std::out_of_range
  // when there are no 16.
  void BlockEncrypt(std::span<const std::uint8_t> plaintext, std::span<std::uint8_t> ciphertext, std::size_t p,
                    std::size_t q) const;
  void BlockDecrypt(std::span<const std::uint8_t> ciphertext, std::span<std::uint8_t> plaintext, std::size_t p,
                    std::size_t q) const;

  // Fills up to whole blocks with zeros; with appendsize there is always room for a last byte that holds the length
  // modulo 16.
  int ArrayEncrypt(std::span<const std::uint8_t> plaintext, Octets& ciphertext, bool appendsize) const;
  // -1, and the plaintext untouched, when the ciphertext is no whole number of blocks. With appendsize, 1 and a message
  // when the length field cannot be one: the plaintext then holds all that was decrypted.
  int ArrayDecrypt(Octets& plaintext, std::span<const std::uint8_t> ciphertext, bool appendsize) const;

  // The first file into the second; the target is not emptied first. Throw FileError.
  int FileEncrypt(const std::filesystem::path& plaintextFileName,
                  const std::filesystem::path& ciphertextFileName) const;
  // The second file into the first. -1 and a message when it cannot be a ciphertext; 1 and a message when its length
  // field cannot be one: the target then holds all that was decrypted.
  int FileDecrypt(const std::filesystem::path& plaintextFileName,
                  const std::filesystem::path& ciphertextFileName) const;

  // The ciphertext as hexadecimal text, in groups of blockSize bits. blockSize is at least 8; the cipher's block has
  // 128 bits whatever it is.
  std::u16string StringEncrypt(std::u16string_view strSource, std::u16string_view strPassword, int blockSize,
                               int keySize);
  // Takes hexadecimal text of any grouping. Empty, after a message, when there is no hexadecimal digit in it, and empty
  // when it is no whole number of blocks. A wrong password is not noticed: it gives wrong text.
  std::u16string StringDecrypt(std::u16string_view strSource, std::u16string_view strPassword, int blockSize,
                               int keySize);

  // FileEncrypt and FileDecrypt with the key of a password; blockSize does not matter.
  void FileEncryptSimple(const std::filesystem::path& plaintextFileName,
                         const std::filesystem::path& ciphertextFileName, std::u16string_view strPassword,
                         int blockSize, int keySize);
  void FileDecryptSimple(const std::filesystem::path& plaintextFileName,
                         const std::filesystem::path& ciphertextFileName, std::u16string_view strPassword,
                         int blockSize, int keySize);

 private:
  const RijndaelKey& Key() const;
  void Show(const char16_t* text) const;

  Prompts& prompts_;
  const RijndaelForm& form_;
  std::optional<RijndaelKey> key_;
};

}  // namespace scrivanta
