#include "crypto/services/CRndXorHash.h"

#include "crypto/services/OverwritingSink.h"
#include "crypto/services/Quietly.h"
#include "text/Encoding.h"

namespace scrivanta {

namespace {

void WriteText(const std::filesystem::path& target, std::u16string_view text) {
  OverwritingSink sink(target);
  sink.Write(Encode(Encoding::kGbk, text));
  sink.Close();
}

}  // namespace

std::u16string CRndXorHash::StringEncrypt(std::u16string_view plaintext, std::u16string_view password) {
  return cipher_.Encrypt(plaintext, password, clock_.Now());
}

std::u16string CRndXorHash::StringDecrypt(std::u16string_view ciphertext, std::u16string_view password) {
  RndXorHashResult result = cipher_.Decrypt(ciphertext, password);
  Passed(result.check);
  return std::move(result.plaintext);
}

void CRndXorHash::FileEncrypt(const std::filesystem::path& source, const std::filesystem::path& target,
                              std::u16string_view password) {
  Quietly([&] { WriteText(target, StringEncrypt(Decode(Encoding::kGbk, ReadWholeFile(source)), password)); });
}

void CRndXorHash::FileDecrypt(const std::filesystem::path& target, const std::filesystem::path& source,
                              std::u16string_view password) {
  Quietly([&] {
    const RndXorHashResult result = cipher_.Decrypt(Decode(Encoding::kGbk, ReadWholeFile(source)), password);
    if (Passed(result.check)) {
      WriteText(target, result.plaintext);
    }
  });
}

bool CRndXorHash::Passed(RndXorHashCheck check) const {
  if (check == RndXorHashCheck::kWrongPassword) {
    prompts_.Ask({.text = u"密码不正确！", .icon = Icon::kCritical, .systemModal = true});
  } else if (check == RndXorHashCheck::kAltered) {
    prompts_.Ask({.text = u"密文被修改，完整性不正确！", .icon = Icon::kWarning});
  }
  return check == RndXorHashCheck::kPassed;
}

}  // namespace scrivanta
