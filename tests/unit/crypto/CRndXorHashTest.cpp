#include <array>
#include <chrono>
#include <filesystem>
#include <set>
#include <string>

#include <gtest/gtest.h>

#include "crypto/services/CRndXorHash.h"
#include "support/ScriptedWorkbench.h"

namespace scrivanta {
namespace {

using testing::ManualClock;
using testing::ScriptedPrompts;
using testing::TemporaryFolder;

constexpr std::u16string_view kWrongPassword = u"密码不正确！";
constexpr std::u16string_view kAltered = u"密文被修改，完整性不正确！";

std::u16string Number(int number) {
  const std::string ascii = std::to_string(number);
  return {ascii.begin(), ascii.end()};
}

class RndXor : public ::testing::Test {
 protected:
  RndXor() {
    using namespace std::chrono_literals;
    clock_.now = std::chrono::local_days(std::chrono::year(2024) / 2 / 29) + 23h + 59min + 58s + 250ms;
  }
  // The text of the only message since the last call, empty when there was none.
  std::u16string TakeMessage() {
    EXPECT_LE(prompts_.messages.size(), 1U);
    std::u16string text;
    if (!prompts_.messages.empty()) {
      text = prompts_.messages.front().text;
      EXPECT_EQ(prompts_.messages.front().icon, text == kAltered ? Icon::kWarning : Icon::kCritical);
      prompts_.messages.clear();
    }
    return text;
  }

  ScriptedPrompts prompts_;
  ManualClock clock_;
  CRndXorHash cipher_{prompts_, clock_};
};

// Worked out by a second program written from the definition: three hashes of eight units, then the four of the text.
TEST_F(RndXor, MakesTheWorkedCiphertext) {
  const std::u16string ciphertext = cipher_.StringEncrypt(u"Hi 中", u"pw");
  EXPECT_EQ(ciphertext,
            u"16 00 3A 00 4A 00 6B 00 40 00 31 00 65 00 72 00 "
            u"06 00 0A 00 2D 00 37 00 0F 00 41 00 14 00 4C 00 "
            u"0F 00 63 00 53 00 6F 00 0B 00 06 00 1E 00 58 00 "
            u"62 00 12 00 6E 00 14 4E ");
  EXPECT_EQ(cipher_.StringDecrypt(ciphertext, u"pw"), u"Hi 中");
}

TEST_F(RndXor, TakesTenThousandTextsAtTenThousandTimes) {
  std::set<std::u16string> salts;
  for (int i = 0; i < 10'000; ++i) {
    clock_.now += std::chrono::seconds(997);
    const std::u16string text = u"文本 " + Number(i * 7919) + std::u16string(static_cast<std::size_t>(i % 50), u'～');
    const std::u16string password = u"pw" + Number(i % 100);
    const std::u16string ciphertext = cipher_.StringEncrypt(text, password);
    ASSERT_EQ(ciphertext.size(), 6 * (24 + text.size()));
    ASSERT_EQ(cipher_.StringDecrypt(ciphertext, password), text) << i;
    salts.insert(ciphertext.substr(0, 48));
  }
  EXPECT_EQ(TakeMessage(), u"");
  // There are about 500 hashes, and no more.
  EXPECT_GT(salts.size(), 400U);
  EXPECT_LE(salts.size(), 512U);
}

TEST_F(RndXor, NoticesAllButOneWrongPasswordInFiveHundred) {
  const std::u16string ciphertext = cipher_.StringEncrypt(u"secret", u"right");
  int passed = 0;
  for (int i = 0; i < 10'000; ++i) {
    const std::u16string result = cipher_.StringDecrypt(ciphertext, u"wrong" + Number(i));
    const std::u16string message = TakeMessage();
    if (message.empty()) {
      ++passed;
      EXPECT_EQ(result, u"secret") << "the password decides nothing but its check";
    } else {
      EXPECT_EQ(message, kWrongPassword);
      EXPECT_EQ(result, u"");
    }
  }
  EXPECT_LT(passed, 60);
}

// Every digit of a ciphertext in turn; about one change in 500 finds the same hash again.
TEST_F(RndXor, NoticesChangedDigits) {
  const std::u16string_view text = u"an unaltered text";
  const std::u16string ciphertext = cipher_.StringEncrypt(text, u"pw");
  const std::size_t checkStart = 48;
  const std::size_t textHashStart = 96;
  int changes = 0;
  int passed = 0;
  for (std::size_t i = 0; i < ciphertext.size(); ++i) {
    for (const char16_t digit : std::u16string_view(u"0123456789ABCDEFfz")) {
      std::u16string changed = ciphertext;
      if (ciphertext[i] == u' ' || changed[i] == digit || changed[i] == u'F') {
        continue;
      }
      changed[i] = digit;
      ++changes;
      const std::u16string result = cipher_.StringDecrypt(changed, u"pw");
      const std::u16string message = TakeMessage();
      if (digit == u'z') {
        EXPECT_EQ(message, u"") << "no hexadecimal text: no result and no word";
        EXPECT_EQ(result, u"");
      } else if (message.empty()) {
        ++passed;
      } else {
        EXPECT_EQ(result, u"");
        EXPECT_TRUE(i < checkStart || message == (i < textHashStart ? kWrongPassword : kAltered)) << i;
      }
    }
  }
  EXPECT_LT(passed, changes / 100);
}

TEST_F(RndXor, NoticesEveryCut) {
  const std::u16string_view text = u"text";
  const std::u16string ciphertext = cipher_.StringEncrypt(text, u"pw");
  for (std::size_t length = 0; length + 1 < ciphertext.size(); ++length) {
    EXPECT_EQ(cipher_.StringDecrypt(std::u16string_view(ciphertext).substr(0, length), u"pw"), u"");
    EXPECT_EQ(TakeMessage(), length < 16 * 6 - 4 ? kWrongPassword : kAltered) << length;
  }
}

TEST_F(RndXor, TakesDigitsOfAnySpacingAndCase) {
  const std::u16string ciphertext = cipher_.StringEncrypt(u"text", u"pw");
  std::u16string dense;
  std::u16string loose;
  for (const char16_t digit : ciphertext) {
    if (digit != u' ') {
      dense += digit >= u'A' ? static_cast<char16_t>(digit + 32) : digit;
      loose.append(1, digit).append(u"   ");
    }
  }
  EXPECT_EQ(cipher_.StringDecrypt(dense, u"pw"), u"text");
  EXPECT_EQ(cipher_.StringDecrypt(loose, u"pw"), u"text");
}

TEST_F(RndXor, KeepsEveryText) {
  const std::u16string texts[] = {u"", std::u16string(u"a\0b", 3), u"\xD800\xFFFF", u"\U0001F600",
                                  std::u16string(9'999, u'长')};
  for (const std::u16string& text : texts) {
    EXPECT_EQ(cipher_.StringDecrypt(cipher_.StringEncrypt(text, u"密码"), u"密码"), text);
    EXPECT_EQ(TakeMessage(), u"");
  }
}

TEST_F(RndXor, MakesOtherCiphertextsAtOtherTimes) {
  const std::u16string first = cipher_.StringEncrypt(u"text", u"pw");
  clock_.now += std::chrono::seconds(1);
  const std::u16string second = cipher_.StringEncrypt(u"text", u"pw");
  EXPECT_NE(first, second);
  EXPECT_EQ(cipher_.StringDecrypt(first, u"pw"), cipher_.StringDecrypt(second, u"pw"));
}

TEST_F(RndXor, HashesAreAsLongAsTheKeySize) {
  EXPECT_EQ(cipher_.KeySize(), 8);
  const std::u16string byDefault = cipher_.StringEncrypt(u"text", u"pw");
  for (const auto size : std::to_array<std::int16_t>({1, 3, 8, 100, 1000})) {
    cipher_.KeySize(size);
    const std::u16string ciphertext = cipher_.StringEncrypt(u"text", u"pw");
    EXPECT_EQ(ciphertext.size(), 6U * (3 * static_cast<std::size_t>(size) + 4));
    EXPECT_EQ(cipher_.StringDecrypt(ciphertext, u"pw"), u"text");
    EXPECT_EQ(TakeMessage(), u"");
    // Neither is a new object's ciphertext, not even with the same size.
    EXPECT_EQ(cipher_.StringDecrypt(byDefault, u"pw"), u"");
    EXPECT_EQ(TakeMessage(), kWrongPassword);
  }
  cipher_.KeySize(8);
  const std::u16string setTo8 = cipher_.StringEncrypt(u"text", u"pw");
  for (const auto size : std::to_array<std::int16_t>({0, -1, -32768})) {
    cipher_.KeySize(size);
    EXPECT_EQ(cipher_.KeySize(), 8);
    EXPECT_EQ(cipher_.StringEncrypt(u"text", u"pw"), setTo8);
  }
}

TEST_F(RndXor, WorksOnFiles) {
  const TemporaryFolder folder;
  const std::filesystem::path plain = folder.Put("plain", "\xD6\xD0\r\n\xFFtext");
  const std::filesystem::path cipher = folder.Put("cipher", std::string(1000, 'o'));
  const std::filesystem::path back = folder.path() / "back";
  cipher_.FileEncrypt(plain, cipher, u"pw");
  EXPECT_EQ(ReadWholeFile(cipher).size(), 1000U) << "the old tail stays";
  std::filesystem::remove(cipher);
  cipher_.FileEncrypt(plain, cipher, u"pw");
  EXPECT_EQ(ReadWholeFile(cipher).size(), 6U * (24 + 8));
  cipher_.FileDecrypt(back, cipher, u"other");
  EXPECT_EQ(TakeMessage(), kWrongPassword);
  EXPECT_FALSE(std::filesystem::exists(back));
  cipher_.FileDecrypt(back, cipher, u"pw");
  EXPECT_EQ(ReadWholeFile(back), "\xD6\xD0\r\n\xFFtext");
  cipher_.FileDecrypt(cipher, cipher, u"pw");
  EXPECT_EQ(ReadWholeFile(cipher).substr(0, 9), "\xD6\xD0\r\n\xFFtext");

  std::filesystem::remove(back);
  cipher_.FileDecrypt(back, folder.path() / "missing", u"pw");
  cipher_.FileEncrypt(folder.path() / "missing", back, u"pw");
  cipher_.FileDecrypt(back, folder.Put("noise", "not hexadecimal"), u"pw");
  EXPECT_FALSE(std::filesystem::exists(back));
  EXPECT_EQ(TakeMessage(), u"");
}

}  // namespace
}  // namespace scrivanta
