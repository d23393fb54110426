// The block cipher in both its forms: the examples of the standards, and everything else against OpenSSL.
#include <memory>
#include <random>
#include <stdexcept>

#include <gtest/gtest.h>
#include <openssl/evp.h>

#include "crypto/Rijndael.h"
#include "unit/crypto/Hex.h"

namespace scrivanta {
namespace {

using testing::Hex;

enum class Direction { kEncrypt, kDecrypt };

Octets ByOpenSsl(const Octets& key, const Octets& input, Direction direction) {
  const EVP_CIPHER* cipher = key.size() == 16   ? EVP_aes_128_ecb()
                             : key.size() == 24 ? EVP_aes_192_ecb()
                                                : EVP_aes_256_ecb();
  const std::unique_ptr<EVP_CIPHER_CTX, decltype(&EVP_CIPHER_CTX_free)> context(EVP_CIPHER_CTX_new(),
                                                                                EVP_CIPHER_CTX_free);
  Octets output(input.size());
  int written = 0;
  const bool done =
      EVP_CipherInit_ex(context.get(), cipher, nullptr, key.data(), nullptr,
                        direction == Direction::kEncrypt ? 1 : 0) == 1 &&
      EVP_CIPHER_CTX_set_padding(context.get(), 0) == 1 &&
      EVP_CipherUpdate(context.get(), output.data(), &written, input.data(), static_cast<int>(input.size())) == 1;
  EXPECT_TRUE(done && static_cast<std::size_t>(written) == input.size());
  return output;
}

struct NamedForm {
  const char* name;
  const RijndaelForm* form;
};

class RijndaelForms : public ::testing::TestWithParam<NamedForm> {
 protected:
  void SetUp() override {
    if (GetParam().form == nullptr) {
      GTEST_SKIP() << "this processor has no AES instructions";
    }
  }

  static Octets Encrypt(const Octets& key, const Octets& plaintext) {
    Octets output(plaintext.size());
    GetParam().form->encrypt(RijndaelKey(key, static_cast<int>(key.size()) * 8), plaintext, output);
    return output;
  }
  static Octets Decrypt(const Octets& key, const Octets& ciphertext) {
    Octets output(ciphertext.size());
    GetParam().form->decrypt(RijndaelKey(key, static_cast<int>(key.size()) * 8), ciphertext, output);
    return output;
  }
  static void ExpectPair(const Octets& key, const Octets& plaintext, const Octets& ciphertext) {
    EXPECT_EQ(Encrypt(key, plaintext), ciphertext);
    EXPECT_EQ(Decrypt(key, ciphertext), plaintext);
  }
};

INSTANTIATE_TEST_SUITE_P(Both, RijndaelForms,
                         ::testing::Values(NamedForm{"Tables", &RijndaelTables()},
                                           NamedForm{"Instructions", RijndaelInstructions()}),
                         [](const auto& testInfo) { return testInfo.param.name; });

TEST_P(RijndaelForms, ReproduceTheExamplesOfTheStandards) {
  // FIPS-197, appendices B and C.
  ExpectPair(Hex(u"2b7e151628aed2a6abf7158809cf4f3c"), Hex(u"3243f6a8885a308d313198a2e0370734"),
             Hex(u"3925841d02dc09fbdc118597196a0b32"));
  const Octets counting = Hex(u"00112233445566778899aabbccddeeff");
  ExpectPair(Hex(u"000102030405060708090a0b0c0d0e0f"), counting, Hex(u"69c4e0d86a7b0430d8cdb78070b4c55a"));
  ExpectPair(Hex(u"000102030405060708090a0b0c0d0e0f1011121314151617"), counting,
             Hex(u"dda97ca4864cdfe06eaf70a0ec0d7191"));
  ExpectPair(Hex(u"000102030405060708090a0b0c0d0e0f101112131415161718191a1b1c1d1e1f"), counting,
             Hex(u"8ea2b7ca516745bfeafc49904b496089"));
  // SP 800-38A, section F.1: four blocks at once.
  const Octets plaintext =
      Hex(u"6bc1bee22e409f96e93d7e117393172a ae2d8a571e03ac9c9eb76fac45af8e51"
          u"30c81c46a35ce411e5fbc1191a0a52ef f69f2445df4f9b17ad2b417be66c3710");
  ExpectPair(Hex(u"2b7e151628aed2a6abf7158809cf4f3c"), plaintext,
             Hex(u"3ad77bb40d7a3660a89ecaf32466ef97 f5d3d58503b9699de785895a96fdbaaf"
                 u"43b1cd7f598ece23881b00e3ed030688 7b0c785e27e8ad3f8223207104725dd4"));
  ExpectPair(Hex(u"8e73b0f7da0e6452c810f32b809079e562f8ead2522c6b7b"), plaintext,
             Hex(u"bd334f1d6e45f25ff712a214571fa5cc 974104846d0ad3ad7734ecb3ecee4eef"
                 u"ef7afd2270e2e60adce0ba2face6444e 9a4b41ba738d6c72fb16691603c18e0e"));
  ExpectPair(Hex(u"603deb1015ca71be2b73aef0857d77811f352c073b6108d72d9810a30914dff4"), plaintext,
             Hex(u"f3eed1bdb5d2a03c064b5a7e3db181f8 591ccb10d410ed26dc5ba74a31362870"
                 u"b6ed21b99ca6f4f9f153e7b1beafed1d 23304b7a39f9f3ff067d8d8f9e24ecc7"));
}

// The families of the published known answers: keys and plaintexts with their first n bits set, the other one zero. Two
// of the published answers to hold on to, the others from the library.
TEST_P(RijndaelForms, AgreeOnTheKnownAnswerFamilies) {
  ExpectPair(Octets(16), Hex(u"80000000000000000000000000000000"), Hex(u"3ad78e726c1ec02b7ebfe92b23d9ec34"));
  ExpectPair(Hex(u"80000000000000000000000000000000"), Octets(16), Hex(u"0edd33d3c621e546455bd8ba1418bec8"));
  const auto firstBits = [](std::size_t size, std::size_t count) {
    Octets bytes(size);
    for (std::size_t i = 0; i < count; ++i) {
      bytes[i / 8] = static_cast<std::uint8_t>(bytes[i / 8] | 0x80 >> i % 8);
    }
    return bytes;
  };
  for (const std::size_t keySize : {16U, 24U, 32U}) {
    for (std::size_t bits = 1; bits <= 128; ++bits) {
      const Octets plaintext = firstBits(16, bits);
      ExpectPair(Octets(keySize), plaintext, ByOpenSsl(Octets(keySize), plaintext, Direction::kEncrypt));
    }
    for (std::size_t bits = 1; bits <= keySize * 8; ++bits) {
      const Octets key = firstBits(keySize, bits);
      ExpectPair(key, Octets(16), ByOpenSsl(key, Octets(16), Direction::kEncrypt));
    }
  }
}

// Lengths around the number of blocks that are worked on side by side, and in place.
TEST_P(RijndaelForms, AgreeWithOpenSslOnRandomKeysAndLengths) {
  std::mt19937 random(197);
  const auto randomBytes = [&random](std::size_t size) {
    Octets bytes(size);
    for (std::uint8_t& byte : bytes) {
      byte = static_cast<std::uint8_t>(random());
    }
    return bytes;
  };
  for (const std::size_t keySize : {16U, 24U, 32U}) {
    for (std::size_t blocks = 0; blocks <= 40; ++blocks) {
      const Octets key = randomBytes(keySize);
      Octets bytes = randomBytes(blocks * kRijndaelBlockSize);
      const Octets encrypted = ByOpenSsl(key, bytes, Direction::kEncrypt);
      EXPECT_EQ(Encrypt(key, bytes), encrypted);
      EXPECT_EQ(Decrypt(key, bytes), ByOpenSsl(key, bytes, Direction::kDecrypt));
      GetParam().form->encrypt(RijndaelKey(key, static_cast<int>(keySize) * 8), bytes, bytes);
      EXPECT_EQ(bytes, encrypted);
    }
  }
}

// After the published chained test: thousands of encryptions, each of the last one's result, the key changed by the
// results now and then.
TEST_P(RijndaelForms, AgreeWithOpenSslAfterThousandsOfChainedBlocks) {
  for (const std::size_t keySize : {16U, 24U, 32U}) {
    Octets key(keySize, 0x5A);
    Octets ours(16, 0xC3);
    for (int round = 0; round < 10; ++round) {
      Octets theirs = ours;
      for (int i = 0; i < 500; ++i) {
        ours = Encrypt(key, ours);
        theirs = ByOpenSsl(key, theirs, Direction::kEncrypt);
      }
      ASSERT_EQ(ours, theirs);
      for (std::size_t i = 0; i < keySize; ++i) {
        key[i] = static_cast<std::uint8_t>(key[i] ^ ours[i % 16]);
      }
    }
  }
}

// FIPS-197, appendix A: words of the three expansions, their first byte in the lowest bits.
TEST(RijndaelKey, ExpandsAsTheStandardDoes) {
  const RijndaelKey key128(Hex(u"2b7e151628aed2a6abf7158809cf4f3c"), 128);
  EXPECT_EQ(key128.rounds(), 10U);
  EXPECT_EQ(key128.encryption()[4], 0x17FEFAA0U);
  EXPECT_EQ(key128.encryption()[43], 0xA60C63B6U);
  const RijndaelKey key192(Hex(u"8e73b0f7da0e6452c810f32b809079e562f8ead2522c6b7b"), 192);
  EXPECT_EQ(key192.rounds(), 12U);
  EXPECT_EQ(key192.encryption()[51], 0x02220001U);
  const RijndaelKey key256(Hex(u"603deb1015ca71be2b73aef0857d77811f352c073b6108d72d9810a30914dff4"), 256);
  EXPECT_EQ(key256.rounds(), 14U);
  EXPECT_EQ(key256.encryption()[59], 0x1E636C70U);
}

TEST(RijndaelKey, RefusesWhatIsNoKey) {
  EXPECT_THROW(RijndaelKey(Octets(32), 160), std::invalid_argument);
  EXPECT_THROW(RijndaelKey(Octets(32), 0), std::invalid_argument);
  EXPECT_THROW(RijndaelKey(Octets(31), 256), std::invalid_argument);
}

}  // namespace
}  // namespace scrivanta
