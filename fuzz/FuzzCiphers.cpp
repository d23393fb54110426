#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "crypto/Base64.h"
#include "crypto/HexText.h"
#include "crypto/NumericCipher.h"
#include "crypto/RijndaelStream.h"
#include "crypto/RijndaelText.h"
#include "crypto/RndXorHash.h"
#include "fuzz/RunFuzz.h"
#include "text/Encoding.h"

namespace scrivanta {
namespace {

void FuzzBase64(std::string_view bytes) {
  const std::string text = EncodeBase64(bytes);
  EXPECT_EQ(DecodeBase64(text), bytes.substr(0, bytes.find('\0')));

  MemorySource source(bytes);
  StringSink sink;
  NoProgress progress;
  const std::optional<std::string> decoded = DecodeBase64(bytes);
  EXPECT_EQ(DecodeBase64Stream(source, sink, progress), decoded.has_value());
  EXPECT_TRUE(!decoded || sink.bytes() == *decoded);
}

const RijndaelKey& SomeKey() {
  static const RijndaelKey key(PasswordBytes(u"12345"), 256);
  return key;
}

void FuzzRijndaelText(std::string_view bytes) {
  for (const Encoding encoding : {Encoding::kGbk, Encoding::kUtf8}) {
    const std::u16string text = Decode(encoding, bytes);
    DecryptText(SomeKey(), FastestRijndael(), text);
    if (text.find(u'\0') == std::u16string::npos) {
      const DecryptedText back =
          DecryptText(SomeKey(), FastestRijndael(), EncryptText(SomeKey(), FastestRijndael(), text, 256));
      EXPECT_EQ(back.text, text);
      EXPECT_EQ(back.outcome, DecryptedText::Outcome::kDone);
    }
  }
}

void FuzzRijndaelFile(std::string_view bytes) {
  NoProgress progress;
  MemorySource asCiphertext(bytes);
  StringSink decrypted;
  const DecryptOutcome outcome = DecryptStream(SomeKey(), FastestRijndael(), asCiphertext, decrypted, progress);
  EXPECT_EQ(outcome == DecryptOutcome::kWrongSize, !IsCiphertextSize(bytes.size()));
  EXPECT_LE(decrypted.bytes().size(), bytes.size());

  MemorySource asPlaintext(bytes);
  StringSink ciphertext;
  EncryptStream(SomeKey(), FastestRijndael(), asPlaintext, ciphertext, progress);
  MemorySource encrypted(ciphertext.bytes());
  StringSink back;
  EXPECT_EQ(DecryptStream(SomeKey(), FastestRijndael(), encrypted, back, progress), DecryptOutcome::kDone);
  EXPECT_EQ(back.bytes(), bytes);
}

void FuzzRndXorHash(std::string_view bytes) {
  const std::u16string text = Decode(Encoding::kGbk, bytes);
  RndXorHash cipher;
  const RndXorHashResult foreign = cipher.Decrypt(text, u"pw");
  EXPECT_TRUE(foreign.check == RndXorHashCheck::kPassed || foreign.plaintext.empty());
  const RndXorHashResult back = cipher.Decrypt(cipher.Encrypt(text, u"pw", {}), u"pw");
  EXPECT_EQ(back.check, RndXorHashCheck::kPassed);
  EXPECT_EQ(back.plaintext, text);
}

void FuzzNumeric(std::string_view bytes) {
  if (const std::optional<std::u16string> text = TextDecrypt(Decode(Encoding::kGbk, bytes), 20'240'229)) {
    EXPECT_LE(text->size(), bytes.size() + 1);
  }
}

constexpr std::string_view kTexts[] = {
    "",
    "plain text, some blocks of sixteen bytes long\r\n",
    "\xBA\xBA\xD7\xD6\xA3\xAC\x81\x30\x81\x30 \x80\xFF",
    "QUJDRA==",
    "F2 0C 5E 00  00112233445566778899AABBCCDDEEFF",
};
constexpr std::string_view kTokens[] = {"=", "==", "*", "\x80", "\xD6\xD0", " ", "  ", "0", "f", "F", "\r\n", "-1"};

TEST(Fuzz, Base64) {
  RunFuzz(FuzzBase64, kTexts, kTokens);
}

TEST(Fuzz, RijndaelText) {
  RunFuzz(FuzzRijndaelText, kTexts, kTokens);
}

TEST(Fuzz, RijndaelFile) {
  RunFuzz(FuzzRijndaelFile, kTexts, kTokens);
}

TEST(Fuzz, RndXorHash) {
  // A true ciphertext of "Hi" and one too short.
  static const std::string ciphertext = Encode(Encoding::kGbk, RndXorHash().Encrypt(u"Hi", u"pw", {}));
  const std::string_view inputs[] = {ciphertext, "16 00 3A 00 ", "", "not hexadecimal"};
  RunFuzz(FuzzRndXorHash, inputs, kTokens);
}

TEST(Fuzz, NumericCipher) {
  static constexpr std::string_view kNumbers[] = {"", "79 4 -10530", "2147483647 -2147483648", " 115134101 "};
  static constexpr std::string_view kNumberTokens[] = {"-", " ", "99999999999", "0", "-10530", "\t", "\xA3\xB1"};
  RunFuzz(FuzzNumeric, kNumbers, kNumberTokens);
}

}  // namespace
}  // namespace scrivanta
