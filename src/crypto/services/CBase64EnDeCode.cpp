#include "crypto/services/CBase64EnDeCode.h"

#include "crypto/Base64.h"
#include "crypto/services/OverwritingSink.h"
#include "crypto/services/Quietly.h"
#include "text/Encoding.h"

namespace scrivanta {

namespace {

void WriteOver(const std::filesystem::path& target, std::string_view bytes) {
  OverwritingSink sink(target);
  sink.Write(bytes);
  sink.Close();
}

}  // namespace

std::u16string CBase64EnDeCode::Base64StringEncode(std::u16string_view text) {
  return Decode(Encoding::kGbk, EncodeBase64(Encode(Encoding::kGbk, text)));
}

std::u16string CBase64EnDeCode::Base64StringDecode(std::u16string_view text) {
  return Decode(Encoding::kGbk, DecodeBase64(Encode(Encoding::kGbk, text)).value_or(""));
}

// The bytes of a file and its text in the code page are the same thing in two forms, so files need no detour by text.
void CBase64EnDeCode::Base64FileEncode(const std::filesystem::path& source, const std::filesystem::path& target) {
  Quietly([&] { WriteOver(target, EncodeBase64(ReadWholeFile(source))); });
}

void CBase64EnDeCode::Base64FileDecode(const std::filesystem::path& target, const std::filesystem::path& source) {
  Quietly([&] { WriteOver(target, DecodeBase64(ReadWholeFile(source)).value_or("")); });
}

}  // namespace scrivanta
