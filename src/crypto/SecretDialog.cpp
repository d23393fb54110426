#include "crypto/SecretDialog.h"

namespace scrivanta {

void SecretDialog::Accept(SecretView& view) {
  const std::u16string text = view.KeyText();
  if (text.empty() || text.find_first_not_of(u"0123456789") != std::u16string::npos) {
    prompts_.Ask({.text = u"非数字！", .icon = Icon::kCritical, .systemModal = true});
    view.FocusKeyText();
    return;
  }
  key_ = SecretKey{text, ciphers_ == Ciphers::kRijndaelOnly || view.RijndaelChecked()};
  view.ClearKeyText();
  view.CloseView();
}

void SecretDialog::Cancel(SecretView& view) {
  view.ClearKeyText();
  view.CloseView();
}

}  // namespace scrivanta
