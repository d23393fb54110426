#include <cstdint>
#include <optional>
#include <random>
#include <string>
#include <string_view>

#include <gtest/gtest.h>
#include <iconv.h>

#include "text/CodePage.h"
#include "text/Encoding.h"

namespace scrivanta {
namespace {

// The converter of the C library, which knows nothing of ours.
class IndependentConverter {
 public:
  explicit IndependentConverter(const char* from) : descriptor_(iconv_open("UTF-16LE", from)) {}
  IndependentConverter(const IndependentConverter&) = delete;
  IndependentConverter& operator=(const IndependentConverter&) = delete;
  ~IndependentConverter() { iconv_close(descriptor_); }

  // Nothing when the bytes are no text.
  std::optional<std::u16string> Decode(std::string bytes) {
    std::u16string text(bytes.size() * 2, u'\0');
    char* input = bytes.data();
    std::size_t inputLeft = bytes.size();
    char* output = reinterpret_cast<char*>(text.data());
    std::size_t outputLeft = text.size() * sizeof(char16_t);
    iconv(descriptor_, nullptr, nullptr, nullptr, nullptr);
    if (iconv(descriptor_, &input, &inputLeft, &output, &outputLeft) != 0 || inputLeft != 0) {
      return std::nullopt;
    }
    text.resize(text.size() - outputLeft / sizeof(char16_t));
    return text;
  }

 private:
  iconv_t descriptor_;
};

std::string TwoBytes(unsigned code) {
  return {static_cast<char>(code >> 8U), static_cast<char>(code & 0xFFU)};
}

bool IsPrivate(char16_t unit) {
  return unit >= 0xE000 && unit <= 0xF8FF;
}

// Codes to which later editions of GB18030, but not its first one and not the code page, give other characters.
bool IsOfLaterEdition(unsigned code) {
  return code == 0xA8BC || (code >= 0xA6D9 && code <= 0xA6F3) || (code >= 0xFE50 && code <= 0xFEA0);
}

TEST(CodePage, AgreesWithAnIndependentConverterOnAllTwoByteCodes) {
  IndependentConverter gbk("GBK");
  IndependentConverter gb18030("GB18030");
  int ofGbk = 0;
  int others = 0;
  for (unsigned code = 0; code <= 0xFFFF; ++code) {
    const std::string bytes = TwoBytes(code);
    const std::u16string text = Decode(Encoding::kGbk, bytes);
    ASSERT_EQ(Encode(Encoding::kGbk, text), bytes) << std::hex << code;
    const bool holdsEuro = code >> 8U == 0x80 || ((code & 0xFFU) == 0x80 && code < 0x8000);
    if (const auto expected = gbk.Decode(bytes)) {
      ASSERT_EQ(text, *expected) << std::hex << code;
      ofGbk += expected->size() == 1 ? 1 : 0;
    } else if (const auto later = gb18030.Decode(bytes); later && code != 0xA2E3 && !holdsEuro) {
      ASSERT_EQ(text.size(), 1U) << std::hex << code;
      ASSERT_TRUE(text == *later || (IsOfLaterEdition(code) && IsPrivate(text[0]))) << std::hex << code;
      ++others;
    } else if (code != 0xA2E3) {
      ASSERT_EQ(text.size(), 2U) << std::hex << code;
    }
  }
  EXPECT_EQ(ofGbk, 21791);
  EXPECT_EQ(others, 23940 - 21791 - 1);
}

TEST(CodePage, HasTheEuroSignAndTheUserDefinedZonesWhereThePlatformHasThem) {
  struct Case {
    std::string bytes;
    std::u16string text;
  };
  const Case cases[] = {
      {"\x80", u"\u20AC"},     {"a\x80\x81\x40", u"a\u20AC\u4E02"},
      {"\xA2\xE3", u"\uE76C"}, {"\xAA\xA1", u"\uE000"},
      {"\xAF\xFE", u"\uE233"}, {"\xF8\xA1", u"\uE234"},
      {"\xFE\xFE", u"\uE4C5"}, {"\xA1\x40", u"\uE4C6"},
      {"\xA7\xA0", u"\uE765"}, {"\xFE\xA0", u"\uE864"},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(Decode(Encoding::kGbk, c.bytes), c.text);
    EXPECT_EQ(Encode(Encoding::kGbk, c.text), c.bytes);
    EXPECT_FALSE(ExceedsCodePage936(c.text));
  }
}

TEST(CodePage, AgreesWithAnIndependentConverterOnFourByteForms) {
  IndependentConverter gb18030("GB18030");
  int compared = 0;
  for (char32_t codePoint = 0x80; codePoint <= 0x10FFFF; codePoint += codePoint < 0x10000 ? 1 : 61) {
    std::u16string text(1, static_cast<char16_t>(codePoint));
    if (codePoint >= 0x10000) {
      text = {static_cast<char16_t>(0xD7C0U + (codePoint >> 10U)),
              static_cast<char16_t>(0xDC00U + (codePoint & 0x3FFU))};
    }
    const std::string bytes = Encode(Encoding::kGbk, text);
    ASSERT_EQ(Decode(Encoding::kGbk, bytes), text) << std::hex << static_cast<std::uint32_t>(codePoint);
    if (bytes.size() != 4) {
      continue;
    }
    ASSERT_TRUE(ExceedsCodePage936(text));
    // Later editions moved a few characters of the basic plane and the private area, nothing else.
    if (const auto expected = gb18030.Decode(bytes); expected && !IsPrivate((*expected)[0])) {
      ASSERT_EQ(text, *expected) << std::hex << static_cast<std::uint32_t>(codePoint);
      ++compared;
    }
  }
  EXPECT_GT(compared, 33000 + 0x100000 / 61);
}

TEST(CodePage, KnowsWhatTheCodePageAloneLacks) {
  const std::u16string_view lacking[] = {u"\u01F9",     u"\u2E81", u"\u303E", u"\u00E4",
                                         u"\U0001F600", u"\xD800", u"\xDC80"};
  for (const std::u16string_view text : lacking) {
    EXPECT_TRUE(ExceedsCodePage936(u"汉" + std::u16string(text)));
  }
  EXPECT_FALSE(ExceedsCodePage936(u"abc\r\n\t\0 汉字ⅷ︵\u00E0\u00B7\u2014€\xDC81\xDCFF"));
  EXPECT_FALSE(ExceedsCodePage936(u""));
}

constexpr Encoding kEncodings[] = {Encoding::kGbk, Encoding::kUtf8};

TEST(Encoding, LosesNoUnitOfTheBasicPlane) {
  for (const Encoding encoding : kEncodings) {
    for (std::uint32_t unit = 0; unit <= 0xFFFF; ++unit) {
      for (const std::u16string_view before : {u"", u"a", u"\x6C49"}) {
        const std::u16string text = std::u16string(before) + static_cast<char16_t>(unit);
        ASSERT_EQ(Decode(encoding, Encode(encoding, text)), text) << std::hex << unit;
      }
    }
  }
}

TEST(Encoding, BringsUndecodableBytesBack) {
  struct Case {
    Encoding encoding;
    std::string bytes;
    std::u16string text;
  };
  const Case cases[] = {
      {Encoding::kGbk, "\xFF", u"\xDCFF"},
      {Encoding::kGbk, "\xBA", u"\xDCBA"},                              // half a character at the end
      {Encoding::kGbk, "\xBA\r\n\xBA\xBA", u"\xDCBA\r\n\x6C49"},        // and before a line end
      {Encoding::kGbk, "\x81\x7F\x81\xFF", u"\xDC81\x7F\xDC81\xDCFF"},  // no trail bytes
      {Encoding::kGbk, "\x81\x30\x81", u"\xDC81\x30\xDC81"},            // a form cut off
      {Encoding::kGbk, "\x83\x36\xC7\x39", u"\xDC83\x36\xDCC7\x39"},    // has a form of two bytes
      {Encoding::kGbk, "\x90\x30\x81\x30\xE3\x32\x9A\x36", u"\U00010000\xDCE3\x32\xDC9A\x36"},  // beyond Unicode
      {Encoding::kGbk, "\xFD\x30\x81\x30", u"\xD800"},
      {Encoding::kGbk, "\xFD\x30\x81\x30\xFF", u"\xDCFD\x30\xDC81\x30\xDCFF"},  // else it would be a pair
      {Encoding::kGbk, "\xFD\x30\x81\x30\xFD\x30\xE7\x34", u"\xDCFD\x30\xDC81\x30\xDC00"},
      {Encoding::kUtf8, "\xE6\xB1\x89\xE6\xB1", u"\x6C49\xDCE6\xDCB1"},
      {Encoding::kUtf8, "\xC0\x80\xE0\x80\x80", u"\xDCC0\xDC80\xDCE0\xDC80\xDC80"},  // overlong
      {Encoding::kUtf8, "\xF4\x90\x80\x80", u"\xDCF4\xDC90\xDC80\xDC80"},            // beyond Unicode
      {Encoding::kUtf8, "\xF0\x9F\x98\x80", u"\U0001F600"},
      {Encoding::kUtf8, "\xED\xA0\xBD", u"\xD83D"},
      {Encoding::kUtf8, "\xED\xB2\x80", u"\xDCED\xDCB2\xDC80"},                    // has a form of one byte
      {Encoding::kUtf8, "\xED\xA0\xBD\xED\xB8\x80", u"\xDCED\xDCA0\xDCBD\xDE00"},  // else it would be a pair
      {Encoding::kUtf8, "\xED\xA0\xBD\xED\xA0\xBE\xFF", u"\xDCED\xDCA0\xDCBD\xDCED\xDCA0\xDCBE\xDCFF"},
      {Encoding::kUtf8, "\xED\xA0\xBD\xFF", u"\xDCED\xDCA0\xDCBD\xDCFF"},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(Decode(c.encoding, c.bytes), c.text);
    EXPECT_EQ(Encode(c.encoding, c.text), c.bytes);
  }
}

TEST(Encoding, AppendsWithoutLookingAtWhatStandsThere) {
  for (const Encoding encoding : kEncodings) {
    std::u16string text(1, u'\xD83D');
    DecodeAppend(encoding, "\xFF", text);
    EXPECT_EQ(text, u"\xD83D\xDCFF");
    std::string bytes = "a";
    EncodeAppend(encoding, u"\x6C49", bytes);
    EXPECT_EQ(bytes, encoding == Encoding::kGbk ? "a\xBA\xBA" : "a\xE6\xB1\x89");
  }
}

// Bytes that are likely to meet each other in characters of every length.
std::string RandomBytes(std::mt19937& random, std::size_t length) {
  static constexpr std::string_view kTelling =
      "a\x30\x39\x40\x7E\x7F\x80\x81\x84\x90\xA0\xA4\xBF\xC2\xE3\xE6\xED\xF0\xF4\xFD\xFE\xFF";
  std::string bytes;
  while (bytes.size() < length) {
    bytes += random() % 3 == 0 ? static_cast<char>(random()) : kTelling[random() % kTelling.size()];
  }
  return bytes;
}

TEST(Encoding, BringsRandomBytesBack) {
  std::mt19937 random(7);
  for (const Encoding encoding : kEncodings) {
    for (int round = 0; round < 4000; ++round) {
      const std::string bytes = RandomBytes(random, round % 100 == 0 ? 10'000 + random() % 10'000 : random() % 40);
      ASSERT_EQ(Encode(encoding, Decode(encoding, bytes)), bytes);
    }
  }
}

TEST(Encoding, BringsRandomTextsBack) {
  std::mt19937 random(11);
  for (const Encoding encoding : kEncodings) {
    for (int round = 0; round < 2000; ++round) {
      std::u16string text;
      const std::size_t length = round % 100 == 0 ? 9'000 : random() % 30;
      while (text.size() < length) {
        const auto unit = static_cast<char16_t>(random() % 3 == 0 ? 0xD700 + random() % 0x900 : random());
        if (unit < 0xDC80 || unit > 0xDCFF) {
          text += unit;
        }
      }
      ASSERT_EQ(Decode(encoding, Encode(encoding, text)), text);
    }
  }
}

}  // namespace
}  // namespace scrivanta
