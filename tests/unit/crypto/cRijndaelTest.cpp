#include <algorithm>
#include <array>
#include <filesystem>
#include <random>
#include <stdexcept>

#include <gtest/gtest.h>

#include "crypto/RijndaelStream.h"
#include "crypto/RijndaelText.h"
#include "crypto/services/cRijndael.h"
#include "support/ScriptedWorkbench.h"
#include "unit/crypto/Hex.h"

namespace scrivanta {
namespace {

using testing::Hex;
using testing::ScriptedPrompts;
using testing::TemporaryFolder;
using testing::ToOctets;

constexpr std::u16string_view kWrongSize = u"File Size Error - ciphertext file not a multiple of block size";
constexpr std::u16string_view kWrongField =
    u"warning - incorrect length field in decrypted file.\r\nWrong key or keysize?";

class CRijndael : public ::testing::Test {
 protected:
  // The text of the only message since the last call, empty when there was none.
  std::u16string TakeMessage() {
    EXPECT_LE(prompts_.messages.size(), 1U);
    std::u16string text;
    if (!prompts_.messages.empty()) {
      text = prompts_.messages.front().text;
      EXPECT_EQ(prompts_.messages.front().icon, Icon::kNone);
      EXPECT_EQ(prompts_.messages.front().buttons, Buttons::kOk);
      prompts_.messages.clear();
    }
    return text;
  }
  // What a ciphertext held before it was encrypted.
  Octets Raw(std::span<const std::uint8_t> ciphertext) {
    Octets plaintext;
    EXPECT_EQ(cipher_.ArrayDecrypt(plaintext, ciphertext, false), 0);
    return plaintext;
  }
  std::filesystem::path Path(const std::filesystem::path& name) const { return folder_.path() / name; }
  std::string Bytes(const std::filesystem::path& name) const { return ReadWholeFile(Path(name)); }

  TemporaryFolder folder_;
  ScriptedPrompts prompts_;
  cRijndael cipher_{prompts_};
};

TEST_F(CRijndael, BlocksStandAtTheirOffsets) {
  cipher_.SetCipherKey(Hex(u"000102030405060708090a0b0c0d0e0f"), 128);
  const Octets plaintext = Hex(u"00112233445566778899aabbccddeeff");
  const Octets ciphertext = Hex(u"69c4e0d86a7b0430d8cdb78070b4c55a");
  Octets bytes(19);
  std::copy(plaintext.begin(), plaintext.end(), bytes.begin() + 3);
  Octets output(21, 0xEE);
  cipher_.BlockEncrypt(bytes, output, 3, 5);
  EXPECT_EQ(Octets(output.begin() + 5, output.end()), ciphertext);
  EXPECT_EQ(Octets(output.begin(), output.begin() + 5), Octets(5, 0xEE));
  cipher_.BlockDecrypt(output, output, 5, 5);
  EXPECT_EQ(Octets(output.begin() + 5, output.end()), plaintext);
  EXPECT_THROW(cipher_.BlockEncrypt(bytes, output, 4, 0), std::out_of_range);
  EXPECT_THROW(cipher_.BlockDecrypt(output, bytes, 0, 100), std::out_of_range);
}

TEST_F(CRijndael, RaisesAnIllegalKeySizeAndForgetsTheKey) {
  for (const int keyBits : {160, 0, -128, 257}) {
    EXPECT_EQ(cipher_.SetCipherKeyString(u"密码", 192), 0);
    try {
      cipher_.SetCipherKey(Octets(32), keyBits);
      ADD_FAILURE() << keyBits;
    } catch (const CipherError& error) {
      EXPECT_EQ(error.number(), 1);
      EXPECT_STREQ(error.what(), "cRijndael.SetCipherKey - Illegal KeyBits Value");
    }
    Octets output;
    EXPECT_THROW(cipher_.ArrayEncrypt(Octets(16), output, false), CipherError);
  }
  EXPECT_THROW(cipher_.StringEncrypt(u"a", u"b", 256, 100), CipherError);
}

TEST_F(CRijndael, PadsArrays) {
  cipher_.SetCipherKeyString(u"key", 256);
  struct Case {
    std::size_t length;
    std::size_t withField;
    std::size_t withoutField;
  };
  for (const Case& c : {Case{0, 16, 0}, {1, 16, 16}, {15, 16, 16}, {16, 32, 16}, {17, 32, 32}, {20, 32, 32}}) {
    const Octets plaintext(c.length, 0xAB);
    Octets ciphertext;
    EXPECT_EQ(cipher_.ArrayEncrypt(plaintext, ciphertext, true), 0);
    Octets expected = plaintext;
    expected.resize(c.withField);
    expected.back() = static_cast<std::uint8_t>(c.length % 16);
    EXPECT_EQ(Raw(ciphertext), expected) << c.length;
    Octets back;
    EXPECT_EQ(cipher_.ArrayDecrypt(back, ciphertext, true), 0);
    // Nothing at all comes back as the whole block: a length of 0 is not cut down to.
    EXPECT_EQ(back, c.length == 0 ? Octets(16) : plaintext);

    EXPECT_EQ(cipher_.ArrayEncrypt(plaintext, ciphertext, false), 0);
    expected = plaintext;
    expected.resize(c.withoutField);
    EXPECT_EQ(Raw(ciphertext), expected) << c.length;
  }
}

TEST_F(CRijndael, RefusesArraysThatAreNoCiphertext) {
  cipher_.SetCipherKeyString(u"key", 128);
  Octets plaintext(3, 9);
  EXPECT_EQ(cipher_.ArrayDecrypt(plaintext, Octets(17), true), -1);
  EXPECT_EQ(plaintext, Octets(3, 9));
  Octets ciphertext;
  const Octets endsIn16 = Hex(u"00000000000000000000000000000010");
  cipher_.ArrayEncrypt(endsIn16, ciphertext, false);
  EXPECT_EQ(TakeMessage(), u"");
  EXPECT_EQ(cipher_.ArrayDecrypt(plaintext, ciphertext, true), 1);
  EXPECT_EQ(TakeMessage(), u"warning - incorrect length field");
  EXPECT_EQ(plaintext, endsIn16);
}

TEST_F(CRijndael, UsesOnlyAsMuchOfThePasswordAsTheKeyHasRoomFor) {
  const auto encrypt = [this](std::u16string_view password, int keySize) {
    return cipher_.StringEncrypt(u"text", password, 256, keySize);
  };
  EXPECT_EQ(encrypt(u"0123456789abcdefXYZ", 128), encrypt(u"0123456789abcdef", 128));
  EXPECT_NE(encrypt(u"0123456789abcdefXYZ", 192), encrypt(u"0123456789abcdef", 192));
  EXPECT_EQ(encrypt(u"一二三四五六七八九", 128), encrypt(u"一二三四五六七八", 128));
  EXPECT_NE(encrypt(u"一二三四五六七", 128), encrypt(u"一二三四五六七八", 128));
  // "密码" is C3 DC C2 EB.
  const std::array<std::uint8_t, 32> expected{0xC3, 0xDC, 0xC2, 0xEB};
  EXPECT_EQ(PasswordBytes(u"密码"), expected);
}

TEST_F(CRijndael, GroupsHexadecimalText) {
  const std::u16string_view text = u"seventeen letters";
  ASSERT_EQ(text.size(), 17U);
  const std::u16string by128 = cipher_.StringEncrypt(text, u"12345", 128, 256);
  const std::u16string by256 = cipher_.StringEncrypt(text, u"12345", 256, 256);
  ASSERT_EQ(by128.size(), 66U);
  ASSERT_EQ(by256.size(), 64U);
  EXPECT_EQ(by128.substr(0, 32) + by128.substr(34), by256);
  EXPECT_EQ(by128.substr(32, 2), u"  ");
  EXPECT_EQ(by256.find_first_not_of(u"0123456789ABCDEF"), std::u16string::npos);
  EXPECT_EQ(cipher_.StringEncrypt(u"", u"12345", 256, 256), u"");
  EXPECT_EQ(cipher_.StringEncrypt(u"a", u"1", 8, 128).size(), 16U * 2 + 15 * 2);
  EXPECT_THROW(cipher_.StringEncrypt(u"a", u"1", 7, 128), std::invalid_argument);
}

TEST_F(CRijndael, DecryptsHexadecimalTextOfAnyDress) {
  const std::u16string_view text = u"seventeen letters";
  const std::u16string hex = cipher_.StringEncrypt(text, u"12345", 128, 256);
  std::u16string lower;
  std::u16string noisy;
  std::u16string wide;
  for (const char16_t digit : hex) {
    lower += digit >= u'A' ? static_cast<char16_t>(digit + 32) : digit;
    noisy.append(1, digit).append(u"\r\nxyz，", 3);
    wide += static_cast<char16_t>(digit + 0x4E00);  // U+4E30 reads as the digit 0: the low eight bits count
  }
  for (const std::u16string& dressed : {hex, lower, noisy, wide, hex + u"A"}) {
    EXPECT_EQ(cipher_.StringDecrypt(dressed, u"12345", 256, 256), text);
  }
}

TEST_F(CRijndael, TellsTextThatIsNotHexadecimal) {
  for (const std::u16string_view text : {u"xyz", u"", u"5"}) {
    EXPECT_EQ(cipher_.StringDecrypt(text, u"1", 256, 256), u"");
    EXPECT_EQ(TakeMessage(), u"错误：非十六进制数据！");
  }
  EXPECT_EQ(cipher_.StringDecrypt(u"00112233", u"1", 256, 256), u"");
  EXPECT_EQ(TakeMessage(), u"");
}

TEST_F(CRijndael, GivesEveryTextBackExactly) {
  const std::u16string_view texts[] = {
      u"plain",
      u"中文，混合 text\r\n第二行\t尾",
      u"€ \u00A5 \u00E9 \u0E01 \uE000 \uFFFD",  // the code page lacks most of these
      u"\U0001F600\U00020000\U0010FFFF",        // surrogate pairs
      u"a\xD800z",                              // half a pair
      u"\xDC81",                                // a byte that was no character
      u"sixteen bytes !!",
  };
  for (const std::u16string_view text : texts) {
    for (const int keySize : {128, 192, 256}) {
      EXPECT_EQ(cipher_.StringDecrypt(cipher_.StringEncrypt(text, u"密码", 256, keySize), u"密码", 256, keySize), text);
    }
  }
  // A NUL ends the text, as the padding does.
  const std::u16string_view withNul(u"ab\0cd", 5);
  EXPECT_EQ(cipher_.StringDecrypt(cipher_.StringEncrypt(withNul, u"1", 256, 256), u"1", 256, 256), u"ab");
}

// The block of FIPS-197's example, and then one of zeros for the length field; both worked out with OpenSSL's program.
TEST_F(CRijndael, LaysFilesOutByHand) {
  const std::filesystem::path source = folder_.Put("source", AsCharacters(Hex(u"00112233445566778899aabbccddeeff")));
  cipher_.SetCipherKey(Hex(u"000102030405060708090a0b0c0d0e0f"), 128);
  EXPECT_EQ(cipher_.FileEncrypt(source, Path("target")), 0);
  EXPECT_EQ(ToOctets(Bytes("target")), Hex(u"69c4e0d86a7b0430d8cdb78070b4c55a c6a13b37878f5b826f4f8162a1c8d879"));
}

// Lengths around the block and around the chunk that files are worked on in.
TEST_F(CRijndael, EncryptsFilesOfEveryLength) {
  std::mt19937 random(42);
  for (const std::size_t size : {0U, 1U, 15U, 16U, 17U, 3'999'984U, 3'999'999U, 4'000'000U, 4'000'001U, 8'000'000U}) {
    std::string bytes(size, '\0');
    for (char& byte : bytes) {
      byte = static_cast<char>(random());
    }
    const std::filesystem::path source = folder_.Put("source", bytes);
    std::filesystem::remove(Path("target"));
    std::filesystem::remove(Path("back"));
    cipher_.FileEncryptSimple(source, Path("target"), u"密码 1", 256, 192);
    const Octets raw = Raw(ToOctets(Bytes("target")));
    std::string expected = bytes + std::string(16 - size % 16, '\0');
    expected.back() = static_cast<char>(size % 16);
    EXPECT_TRUE(AsCharacters(raw) == expected) << size;
    cipher_.FileDecryptSimple(Path("back"), Path("target"), u"密码 1", 0, 192);
    EXPECT_TRUE(Bytes("back") == bytes) << size;
  }
  EXPECT_EQ(TakeMessage(), u"");
}

TEST_F(CRijndael, TellsFilesThatAreNoCiphertext) {
  cipher_.SetCipherKeyString(u"key", 256);
  for (const std::size_t size : {0U, 15U, 17U, 31U}) {
    EXPECT_EQ(cipher_.FileDecrypt(Path("plain"), folder_.Put("cipher", std::string(size, 'x'))), -1);
    EXPECT_EQ(TakeMessage(), kWrongSize);
    EXPECT_FALSE(std::filesystem::exists(Path("plain")));
  }
  EXPECT_THROW(cipher_.FileDecrypt(Path("plain"), Path("missing")), FileError);
  EXPECT_THROW(cipher_.FileEncrypt(Path("missing"), Path("plain")), FileError);
  EXPECT_FALSE(std::filesystem::exists(Path("plain")));
}

TEST_F(CRijndael, WritesAllThatItDecryptedUnderTheWrongKey) {
  const std::filesystem::path source = folder_.Put("source", std::string(100, 's'));
  cipher_.FileEncryptSimple(source, Path("cipher"), u"right", 256, 256);
  int noticed = 0;
  for (int i = 0; i < 1000; ++i) {
    const std::string number = std::to_string(i);
    cipher_.SetCipherKeyString(std::u16string(number.begin(), number.end()), 256);
    std::filesystem::remove(Path("back"));
    const int result = cipher_.FileDecrypt(Path("back"), Path("cipher"));
    EXPECT_EQ(TakeMessage(), result == 1 ? kWrongField : u"");
    if (result == 1) {
      ++noticed;
      EXPECT_EQ(Bytes("back").size(), 112U);
    } else {
      EXPECT_EQ(result, 0);
      EXPECT_LT(Bytes("back").size(), 112U);
    }
  }
  // One wrong key in sixteen leaves a last byte that could be a length.
  EXPECT_GT(noticed, 900);
}

TEST_F(CRijndael, LeavesTheTailOfALongerTarget) {
  const std::filesystem::path source = folder_.Put("source", "short");
  cipher_.SetCipherKeyString(u"key", 128);
  folder_.Put("target", std::string(40, 't'));
  cipher_.FileEncrypt(source, Path("target"));
  EXPECT_EQ(Bytes("target").size(), 40U);
  EXPECT_EQ(Bytes("target").substr(16), std::string(24, 't'));
}

TEST_F(CRijndael, EncryptsAFileOntoItself) {
  std::string bytes(9'000'001, '\0');
  std::mt19937 random(7);
  for (char& byte : bytes) {
    byte = static_cast<char>(random());
  }
  const std::filesystem::path file = folder_.Put("file", bytes);
  cipher_.SetCipherKeyString(u"key", 256);
  EXPECT_EQ(cipher_.FileEncrypt(file, Path("elsewhere")), 0);
  EXPECT_EQ(cipher_.FileEncrypt(file, file), 0);
  EXPECT_TRUE(Bytes("file") == Bytes("elsewhere"));
  EXPECT_EQ(cipher_.FileDecrypt(file, file), 0);
  EXPECT_TRUE(Bytes("file").substr(0, bytes.size()) == bytes);
}

// The electronic codebook: a changed byte damages its own block and no other, and nothing notices it.
TEST_F(CRijndael, WithstandsEveryChangedByteAndEveryLength) {
  const std::u16string text = u"明文 plaintext, long enough for some blocks of sixteen bytes.";
  const std::u16string hex = cipher_.StringEncrypt(text, u"123", 256, 256);
  for (std::size_t i = 0; i < hex.size(); ++i) {
    for (const char16_t other : {u'0', u'F', u' ', u'z'}) {
      std::u16string changed = hex;
      changed[i] = other;
      const std::u16string result = cipher_.StringDecrypt(changed, u"123", 256, 256);
      EXPECT_TRUE(result != text || changed == hex || hex[i] == u' ') << i;
    }
    const std::u16string result = cipher_.StringDecrypt(std::u16string_view(hex).substr(0, i), u"123", 256, 256);
    const std::size_t bytes = FromHex(std::u16string_view(hex).substr(0, i)).size();
    EXPECT_EQ(TakeMessage(), bytes == 0 ? u"错误：非十六进制数据！" : u"");
    EXPECT_EQ(result.empty(), bytes == 0 || bytes % 16 != 0);
  }
}

// A source that does not know its size is found to be no ciphertext at its end.
TEST(RijndaelStream, ReadsSourcesOfUnknownSize) {
  class Trickle final : public ByteSource {
   public:
    explicit Trickle(std::string_view bytes) : source_(bytes) {}
    std::size_t Read(std::span<char> buffer) override {
      return source_.Read(buffer.first(std::min<std::size_t>(buffer.size(), 1'000)));
    }

   private:
    MemorySource source_;
  };
  const RijndaelKey key(Octets(32, 1), 256);
  NoProgress progress;
  for (const std::size_t size : {0U, 5U, 16U, 4'000'000U, 4'100'000U}) {
    const std::string bytes(size, 'b');
    Trickle source(bytes);
    StringSink ciphertext;
    EncryptStream(key, FastestRijndael(), source, ciphertext, progress);
    Trickle encrypted(ciphertext.bytes());
    StringSink plaintext;
    EXPECT_EQ(DecryptStream(key, FastestRijndael(), encrypted, plaintext, progress), DecryptOutcome::kDone);
    EXPECT_TRUE(plaintext.bytes() == bytes);
    Trickle cut(std::string_view(ciphertext.bytes()).substr(1));
    EXPECT_EQ(DecryptStream(key, FastestRijndael(), cut, plaintext, progress), DecryptOutcome::kWrongSize);
  }
}

}  // namespace
}  // namespace scrivanta
