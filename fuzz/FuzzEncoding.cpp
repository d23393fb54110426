#include <algorithm>
#include <cstring>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "fuzz/RunFuzz.h"
#include "text/Encoding.h"

namespace scrivanta {
namespace {

// The bytes as UTF-16 code units as they come.
std::u16string AsUnits(std::string_view bytes) {
  std::u16string text(bytes.size() / sizeof(char16_t), u'\0');
  std::memcpy(text.data(), bytes.data(), text.size() * sizeof(char16_t));
  return text;
}

void CheckBothWays(Encoding encoding, std::string_view bytes) {
  const std::u16string text = Decode(encoding, bytes);
  EXPECT_EQ(Encode(encoding, text), bytes);
  EXPECT_LE(text.size(), bytes.size());

  std::u16string foreign = AsUnits(bytes);
  EXPECT_EQ(Encode(encoding, Decode(encoding, Encode(encoding, foreign))), Encode(encoding, foreign));
  std::erase_if(foreign, [](char16_t unit) { return unit >= 0xDC80 && unit <= 0xDCFF; });
  EXPECT_EQ(Decode(encoding, Encode(encoding, foreign)), foreign);
}

void FuzzCodePage(std::string_view bytes) {
  CheckBothWays(Encoding::kGbk, bytes);
}

void FuzzUtf8(std::string_view bytes) {
  CheckBothWays(Encoding::kUtf8, bytes);
}

TEST(Fuzz, CodePage) {
  static constexpr std::string_view kInputs[] = {
      "",
      "plain text, long enough for eight at a time\r\n\t",
      "\xBA\xBA\xD7\xD6\xA3\xAC\xD3\xEB abc \x80 \xAA\xA1\xFE\xFE\xA1\x40",
      "\x81\x30\x81\x30\x84\x31\xA4\x39\x90\x30\x81\x30\xE3\x32\x9A\x35",
      "\xFD\x30\x81\x30\xFD\x30\xE7\x34\xFD\x31\xD1\x37",
      "\x3D\xD8\x80\xDC\x00\xD8\x81\xDC",
  };
  static constexpr std::string_view kTokens[] = {
      "\x80",
      "\xFF",
      "\x81",
      "\xFE",
      "\x30",
      "\x39",
      "\x40",
      "\x7F",
      "\xFD\x30\x81\x30",
      "\xFD\x30\xE7\x34",
      "\x83\x36\xC7\x39",
      "\x90\x30\x81\x30",
      "\x3D\xD8",
      "\x80\xDE",
      "\x80\xDC",
  };
  RunFuzz(FuzzCodePage, kInputs, kTokens);
}

TEST(Fuzz, Utf8) {
  static constexpr std::string_view kInputs[] = {
      "",
      "plain text, long enough for eight at a time\r\n\t",
      "\xEF\xBB\xBF\xE6\xB1\x89\xE5\xAD\x97 abc \xC3\xA9 \xF0\x9F\x98\x80",
      "\xED\xA0\xBD\xED\xB8\x80\xED\xB2\x80\xED\xBF\xBF",
      "\xC0\x80\xE0\x80\x80\xF0\x80\x80\x80\xF4\x90\x80\x80\xF8\x88",
      "\x3D\xD8\x80\xDC\x00\xD8\x81\xDC",
  };
  static constexpr std::string_view kTokens[] = {
      "\x80",     "\xBF",     "\xC2", "\xE0\xA0", "\xED\xA0\x80", "\xED\xB8\x80", "\xED\xB2\x80",
      "\xF0\x90", "\xF4\x8F", "\xFF", "\x3D\xD8", "\x80\xDE",     "\x80\xDC",
  };
  RunFuzz(FuzzUtf8, kInputs, kTokens);
}

}  // namespace
}  // namespace scrivanta
