#include "crypto/SecretDialog.h"

namespace scrivanta {

void SecretDialog::Accept(SecretView& view) {
  if (const std::u16string fault = FaultOf(view); !fault.empty()) {
    prompts_.Ask({.text = fault, .icon = Icon::kCritical, .systemModal = true});
    view.FocusKeyText();
    return;
  }
  const bool isRijndael = request_.isOfFile || view.RijndaelChecked();
  key_ = SecretKey{view.KeyText(), view.SealedChecked() ? Cipher::kSealed
                                   : isRijndael         ? Cipher::kRijndael
                                                        : Cipher::kNumeric};
  view.ClearKeyText();
  view.CloseView();
}

std::u16string SecretDialog::FaultOf(const SecretView& view) const {
  const std::u16string text = view.KeyText();
  if (!view.SealedChecked()) {
    const bool isOfDigits = !text.empty() && text.find_first_not_of(u"0123456789") == std::u16string::npos;
    return isOfDigits ? u"" : u"非数字！";
  }
  if (text.empty()) {
    return u"请输入口令。";
  }
  return request_.isEncrypting && view.RepeatedText() != text ? u"两次输入的口令不一样。" : u"";
}

void SecretDialog::Cancel(SecretView& view) {
  view.ClearKeyText();
  view.CloseView();
}

}  // namespace scrivanta
