#include "crypto/services/cRijndael.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "crypto/RijndaelStream.h"
#include "crypto/RijndaelText.h"
#include "crypto/services/OverwritingSink.h"

namespace scrivanta {

namespace {

template <typename Byte>
std::span<Byte> BlockAt(std::span<Byte> bytes, std::size_t offset) {
  if (bytes.size() < kRijndaelBlockSize || offset > bytes.size() - kRijndaelBlockSize) {
    throw std::out_of_range("there is no whole block at this offset");
  }
  return bytes.subspan(offset, kRijndaelBlockSize);
}

}  // namespace

cRijndael::cRijndael(Prompts& prompts, const RijndaelForm& form) : prompts_(prompts), form_(form) {}

int cRijndael::SetCipherKey(std::span<const std::uint8_t> pass, int keyBits) {
  key_.reset();
  if (keyBits != 128 && keyBits != 192 && keyBits != 256) {
    throw CipherError(1, "cRijndael.SetCipherKey - Illegal KeyBits Value");
  }
  key_.emplace(pass, keyBits);
  return 0;
}

int cRijndael::SetCipherKeyString(std::u16string_view passPhrase, int keyBits) {
  return SetCipherKey(PasswordBytes(passPhrase), keyBits);
}

void cRijndael::BlockEncrypt(std::span<const std::uint8_t> plaintext, std::span<std::uint8_t> ciphertext, std::size_t p,
                             std::size_t q) const {
  form_.encrypt(Key(), BlockAt(plaintext, p), BlockAt(ciphertext, q));
}

void cRijndael::BlockDecrypt(std::span<const std::uint8_t> ciphertext, std::span<std::uint8_t> plaintext, std::size_t p,
                             std::size_t q) const {
  form_.decrypt(Key(), BlockAt(ciphertext, p), BlockAt(plaintext, q));
}

int cRijndael::ArrayEncrypt(std::span<const std::uint8_t> plaintext, Octets& ciphertext, bool appendsize) const {
  const std::size_t size = plaintext.size();
  const std::size_t room = size + (appendsize ? kRijndaelBlockSize : kRijndaelBlockSize - 1);
  Octets result(room - room % kRijndaelBlockSize);
  std::copy(plaintext.begin(), plaintext.end(), result.begin());
  if (appendsize) {
    result.back() = static_cast<std::uint8_t>(size % kRijndaelBlockSize);
  }
  form_.encrypt(Key(), result, result);
  ciphertext = std::move(result);
  return 0;
}

int cRijndael::ArrayDecrypt(Octets& plaintext, std::span<const std::uint8_t> ciphertext, bool appendsize) const {
  const std::size_t size = ciphertext.size();
  if (size % kRijndaelBlockSize != 0) {
    return -1;
  }
  Octets result(size);
  form_.decrypt(Key(), ciphertext, result);
  plaintext = std::move(result);
  if (!appendsize) {
    return 0;
  }
  if (size == 0 || plaintext.back() >= kRijndaelBlockSize) {
    Show(u"warning - incorrect length field");
    return 1;
  }
  // A length of 0 is not cut down to: such a plaintext stays one block of zeros.
  const std::size_t length = size - kRijndaelBlockSize + plaintext.back();
  if (length >= 1) {
    plaintext.resize(length);
  }
  return 0;
}

int cRijndael::FileEncrypt(const std::filesystem::path& plaintextFileName,
                           const std::filesystem::path& ciphertextFileName) const {
  const RijndaelKey& key = Key();
  FileSource source(plaintextFileName);
  OverwritingSink sink(ciphertextFileName);
  NoProgress progress;
  EncryptStream(key, form_, source, sink, progress);
  sink.Close();
  return 0;
}

int cRijndael::FileDecrypt(const std::filesystem::path& plaintextFileName,
                           const std::filesystem::path& ciphertextFileName) const {
  const RijndaelKey& key = Key();
  FileSource source(ciphertextFileName);
  auto outcome = DecryptOutcome::kWrongSize;
  if (IsCiphertextSize(source.Size().value_or(0))) {
    OverwritingSink sink(plaintextFileName);
    NoProgress progress;
    outcome = DecryptStream(key, form_, source, sink, progress);
    sink.Close();
  }
  switch (outcome) {
    case DecryptOutcome::kDone:
      return 0;
    case DecryptOutcome::kWrongSize:
      Show(u"File Size Error - ciphertext file not a multiple of block size");
      return -1;
    case DecryptOutcome::kWrongLengthField:
      break;
  }
  Show(u"warning - incorrect length field in decrypted file.\r\nWrong key or keysize?");
  return 1;
}

std::u16string cRijndael::StringEncrypt(std::u16string_view strSource, std::u16string_view strPassword, int blockSize,
                                        int keySize) {
  SetCipherKeyString(strPassword, keySize);
  return EncryptText(Key(), form_, strSource, blockSize);
}

std::u16string cRijndael::StringDecrypt(std::u16string_view strSource, std::u16string_view strPassword,
                                        int /*blockSize*/, int keySize) {
  SetCipherKeyString(strPassword, keySize);
  DecryptedText result = DecryptText(Key(), form_, strSource);
  if (strSource.empty() || result.outcome == DecryptedText::Outcome::kNotHexadecimal) {
    Show(u"错误：非十六进制数据！");
  }
  return std::move(result.text);
}

void cRijndael::FileEncryptSimple(const std::filesystem::path& plaintextFileName,
                                  const std::filesystem::path& ciphertextFileName, std::u16string_view strPassword,
                                  int /*blockSize*/, int keySize) {
  SetCipherKeyString(strPassword, keySize);
  FileEncrypt(plaintextFileName, ciphertextFileName);
}

void cRijndael::FileDecryptSimple(const std::filesystem::path& plaintextFileName,
                                  const std::filesystem::path& ciphertextFileName, std::u16string_view strPassword,
                                  int /*blockSize*/, int keySize) {
  SetCipherKeyString(strPassword, keySize);
  FileDecrypt(plaintextFileName, ciphertextFileName);
}

const RijndaelKey& cRijndael::Key() const {
  if (!key_) {
    throw CipherError(1, "cRijndael - no key has been set");
  }
  return *key_;
}

void cRijndael::Show(const char16_t* text) const {
  prompts_.Ask({.text = text});
}

}  // namespace scrivanta
