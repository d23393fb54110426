#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "fuzz/RunFuzz.h"
#include "text/DocumentFormat.h"

namespace scrivanta {
namespace {

bool HasLoneLineEnd(std::u16string_view text) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool isWhole = text[i] == u'\r'   ? i + 1 < text.size() && text[i + 1] == u'\n'
                         : text[i] == u'\n' ? i > 0 && text[i - 1] == u'\r'
                                            : true;
    if (!isWhole) {
      return true;
    }
  }
  return false;
}

void FuzzDocument(std::string_view bytes) {
  const DecodedDocument document = DecodeDocument(bytes);
  const DocumentFormat& format = document.format;
  const std::string written = EncodeDocument(document.text, format);
  if (format.isBinary || format.lineEnds != DocumentLineEnds::kMixed) {
    EXPECT_EQ(written, bytes);
  }
  EXPECT_EQ(DecodeDocument(written).text, document.text);
  EXPECT_TRUE(format.isBinary || !HasLoneLineEnd(document.text));
  EXPECT_FALSE(NeedsEncodingQuestion(document.text, format));

  // Saved in any other way and read again it is the same text.
  const bool isText = document.text.find_first_of(u"\0\xFEFF", 0, 2) == std::u16string::npos && !format.isBinary;
  if (isText) {
    for (const DocumentEncoding encoding : {DocumentEncoding::kUtf8, DocumentEncoding::kUtf8WithMark,
                                            DocumentEncoding::kUtf16Le, DocumentEncoding::kUtf16Be}) {
      for (const DocumentLineEnds lineEnds : {DocumentLineEnds::kCrLf, DocumentLineEnds::kLf, DocumentLineEnds::kCr}) {
        const DocumentFormat other = {.encoding = encoding, .lineEnds = lineEnds};
        EXPECT_EQ(DecodeDocument(EncodeDocument(document.text, other)).text, document.text);
      }
    }
  }
}

TEST(Fuzz, Document) {
  using std::string_view_literals::operator""sv;
  static constexpr std::string_view kInputs[] = {
      "plain\r\ntext\r\n",
      "a\nb\n\xBA\xBA\xD7\xD6\n",
      "a\rb\r\xBA\xBA\xD7\xD6\x81\x30\x84\x36\r",
      "\xE6\xB1\x89\xE5\xAD\x97\xE6\xB1\x89\xE5\xAD\x97\xE6\xB1\x89\xE5\xAD\x97\xE6\xB1\x89\xE5\xAD\x97\xE6\xB1\x89\r"
      "\n",
      "\xEF\xBB\xBF\xE6\xB1\x89\n",
      "\xFF\xFE\x49\x6C\r\0\n\0a\0"sv,
      "\xFE\xFF\x6C\x49\0\r\0\n\0a"sv,
      "\0\1\2\3\n\r\xFF\xFF"sv,
  };
  static constexpr std::string_view kTokens[] = {
      "\r",       "\n",           "\r\n",     "\0"sv, "\xEF\xBB\xBF", "\xFF\xFE",
      "\xFE\xFF", "\xE6\xB1\x89", "\xBA\xBA", "\x1F", "\xDC",         "\xFF",
  };
  RunFuzz(FuzzDocument, kInputs, kTokens);
}

}  // namespace
}  // namespace scrivanta
