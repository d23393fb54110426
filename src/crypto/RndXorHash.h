// The light cipher behind CRndXorHash, without its messages. A ciphertext is three hashes and the text itself: the salt
// S, the hash P of salt and password, the hash H of the plaintext, then the plaintext XOR a keystream that S, P and H
// alone decide. So whoever has the ciphertext can read it without the password: it hides text from a glance, and that
// is all. With hashes of eight characters about 500 different ones exist: one wrong password in 500 passes, and so does
// one alteration in 500.
#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>

#include "crypto/RandomSequence.h"

namespace scrivanta {

enum class RndXorHashCheck {
  kPassed,
  kWrongPassword,
  kAltered,    // the plaintext is not the one that was encrypted, or digits are missing
  kMalformed,  // there are characters that are neither hexadecimal digits nor spaces
};

struct RndXorHashResult {
  RndXorHashCheck check = RndXorHashCheck::kPassed;
  std::u16string plaintext;  // empty unless the check has passed
};

class RndXorHash {
 public:
  static constexpr std::int16_t kDefaultKeySize = 8;

  // The length of a hash, in characters.
  std::int16_t KeySize() const noexcept { return keySize_; }
  // Anything below 1 means kDefaultKeySize. The characters mixed into every hash become others than those of a new
  // object, so even the same size makes other hashes.
  void KeySize(std::int16_t value);

  // Every code unit is its low and its high byte, each as two digits and a space. The time is the salt: the same text
  // at another time makes another ciphertext. Throws CipherError when no salt makes a ciphertext that passes its own
  // check.
  std::u16string Encrypt(std::u16string_view plaintext, std::u16string_view password,
                         std::chrono::local_time<std::chrono::milliseconds> now);
  RndXorHashResult Decrypt(std::u16string_view ciphertext, std::u16string_view password);

 private:
  void Seed(std::u16string_view text);
  std::u16string Stream(std::u16string_view text);
  std::u16string Hash(std::u16string_view text);
  std::u16string EncryptWithSalt(std::u16string_view plaintext, std::u16string_view password,
                                 std::u16string_view saltText);
  RndXorHashResult DecryptUnits(std::u16string_view units, std::u16string_view password);

  std::int16_t keySize_ = kDefaultKeySize;
  std::u16string key_ = u"40716253";
  RandomSequence random_;
};

}  // namespace scrivanta
