#include "text/Encoding.h"

#include "text/CodePage.h"
#include "text/Utf8.h"

namespace scrivanta {

std::u16string Decode(Encoding encoding, std::string_view bytes) {
  std::u16string text;
  DecodeAppend(encoding, bytes, text);
  return text;
}

std::string Encode(Encoding encoding, std::u16string_view text) {
  std::string bytes;
  EncodeAppend(encoding, text, bytes);
  return bytes;
}

void DecodeAppend(Encoding encoding, std::string_view bytes, std::u16string& text) {
  if (encoding == Encoding::kGbk) {
    DecodeGbkAppend(bytes, text);
  } else {
    DecodeUtf8Append(bytes, text);
  }
}

void EncodeAppend(Encoding encoding, std::u16string_view text, std::string& bytes) {
  if (encoding == Encoding::kGbk) {
    EncodeGbkAppend(text, bytes);
  } else {
    EncodeUtf8Append(text, bytes);
  }
}

}  // namespace scrivanta
