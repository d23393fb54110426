#include <limits>
#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

#include "crypto/NumericCipher.h"
#include "text/ExplainedError.h"

namespace scrivanta {
namespace {

TEST(NumericCipher, WritesNumbersToABase) {
  struct Case {
    std::uint64_t number;
    unsigned base;
    std::u16string_view digits;
  };
  const Case cases[] = {
      {0, 2, u"0"},
      {0, 16, u"0"},
      {255, 16, u"FF"},
      {30, 8, u"36"},
      {12, 8, u"14"},
      {35, 36, u"Z"},
      {4'294'967'296, 36, u"1Z141Z4"},
      {10, 2, u"1010"},
      {2'147'483'647, 16, u"7FFFFFFF"},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(ToBase(c.number, c.base), c.digits);
  }
  EXPECT_EQ(ToBase(std::numeric_limits<std::uint64_t>::max(), 2).size(), 64U);
  EXPECT_THROW(ToBase(1, 1), std::invalid_argument);
  EXPECT_THROW(ToBase(1, 37), std::invalid_argument);
}

TEST(NumericCipher, EncryptsTheWorkedExamples) {
  struct Case {
    std::u16string_view text;
    std::uint64_t key;
    std::u16string_view numbers;
  };
  const Case cases[] = {
      {u"A", 5, u"101"},       // 5 * 3 + 15 = 30, octal 36, 65 XOR 36
      {u"A", 12, u"79"},       // octal 14, 65 XOR 14
      {u"A", 11, u"125"},      // 48, octal 60
      {u"A", 0, u"80"},        // 15, octal 17
      {u"中", 12, u"-10530"},  // D6D0 is -10544
      {u"A\r\n中", 12, u"79 3 4 -10530"},
      {u"", 12, u""},
      {u"A", kLargestNumericKey, u"2147477840"},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(TextEncrypt(c.text, c.key), c.numbers);
    EXPECT_EQ(TextDecrypt(c.numbers, c.key), c.text);
  }
}

TEST(NumericCipher, GivesTheWholeCodePageBack) {
  std::u16string text;
  for (char16_t c = 0; c < 0x80; ++c) {
    text += c;
  }
  text += u"€中文輸入，。「」あアЯαⅣ①㈠\xDC81\xDCFF";  // the last two: bytes that were no character
  for (const std::uint64_t key : {0U, 1U, 11U, 12U, 65'535U, 65'536U, 20'240'229U}) {
    EXPECT_EQ(TextDecrypt(TextEncrypt(text, key), key), text) << key;
  }
}

TEST(NumericCipher, RefusesCharactersThatTheCodePageLacks) {
  for (const std::u16string_view character : {u"\U0001F600", u"\u00F1", u"\xD800"}) {
    const std::u16string text = u"1234" + std::u16string(character) + u"6";
    try {
      TextEncrypt(text, 12);
      ADD_FAILURE();
    } catch (const ExplainedError& error) {
      EXPECT_STREQ(error.what(), "character 5 is not in code page 936, so the numeric cipher has no code for it");
      EXPECT_EQ(error.chinese(), u"第 5 个字符“" + std::u16string(character) +
                                     u"”不在 GBK 字符集中，数字加密无法处理。请选用 Rijndael 加密。");
    }
  }
}

TEST(NumericCipher, TakesKeysOfDigitsThatAreNotTooLarge) {
  EXPECT_EQ(NumericKey(u"0"), 0U);
  EXPECT_EQ(NumericKey(u"0012"), 12U);
  EXPECT_EQ(NumericKey(u"295600127"), kLargestNumericKey);
  for (const std::u16string_view tooLarge : {u"295600128", u"99999999999999999999999999999999999999999999"}) {
    try {
      NumericKey(tooLarge);
      ADD_FAILURE();
    } catch (const ExplainedError& error) {
      EXPECT_STREQ(error.what(), "the numeric key is too large: at most 295600127 can be used");
      EXPECT_EQ(error.chinese(),
                u"密钥太大：数字加密的密钥不能超过 295600127。请改用较小的密钥，或选用 Rijndael 加密。");
    }
  }
  for (const std::u16string_view noDigits : {u"", u" 1", u"-1", u"1e3", u"１"}) {
    EXPECT_THROW(NumericKey(noDigits), ExplainedError);
  }
  EXPECT_THROW(TextEncrypt(u"a", kLargestNumericKey + 1), std::invalid_argument);
}

TEST(NumericCipher, DecryptsOnlyListsOfNumbers) {
  EXPECT_EQ(TextDecrypt(u"  79 76  ", 12), u"AB") << "blanks around the list do not count";
  for (const std::u16string_view text : {u"abc", u"79  76", u"79\t76", u"79\r\n", u"7 9x", u"-", u" ", u"79 - 76",
                                         u"79,76", u"1.5", u"99999999999999", u"2147483648", u"７９"}) {
    EXPECT_EQ(TextDecrypt(text, 12), std::nullopt);
  }
  EXPECT_EQ(TextDecrypt(u"2147483647", 12), std::nullopt) << "no character has this code";
}

TEST(NumericCipher, GivesWrongCharactersForWrongKeys) {
  const std::u16string numbers = TextEncrypt(u"text 中文", 12);
  for (std::uint64_t key = 0; key < 5'000; ++key) {
    const std::optional<std::u16string> text = TextDecrypt(numbers, key);
    EXPECT_TRUE(!text || *text != u"text 中文" || key == 12) << key;
  }
}

}  // namespace
}  // namespace scrivanta
