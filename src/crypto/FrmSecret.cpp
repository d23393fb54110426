#include "crypto/FrmSecret.h"

#include <utility>

#include "crypto/FrmSecretControls.h"

namespace scrivanta {

FrmSecret::FrmSecret(WindowHost& host, std::function<HWND()> owner)
    : Dialog(host, IDD_FRM_SECRET), owner_(std::move(owner)) {}

void FrmSecret::ShowSecret(SecretDialog& dialog) {
  dialog_ = &dialog;
  ShowModal(owner_());
  dialog_ = nullptr;
}

void FrmSecret::OnInit() {
  const bool rijndaelOnly = dialog_->ciphers() == SecretDialog::Ciphers::kRijndaelOnly;
  SetChecked(Check1, rijndaelOnly || rijndaelChecked_);
  EnableControl(Check1, !rijndaelOnly);
  SetToolTip(Text1, kSecretToolTip);
  SetToolTip(Check1, kSecretToolTip);
  CentreOverOwner();
  FocusOn(Text1);
}

bool FrmSecret::OnCommand(int controlId, int) {
  switch (controlId) {
    case IDOK:  // Enter
    case Command1:
      dialog_->Accept(*this);
      return true;
    case IDCANCEL:  // Esc, and the window's own close button
    case Command2:
      dialog_->Cancel(*this);
      return true;
    default:
      return false;
  }
}

void FrmSecret::OnClose() {
  if (dialog_->ciphers() == SecretDialog::Ciphers::kBoth) {
    rijndaelChecked_ = IsChecked(Check1);
  }
}

std::u16string FrmSecret::KeyText() const {
  return ControlText(Text1);
}

void FrmSecret::ClearKeyText() {
  SetControlText(Text1, u"");
}

bool FrmSecret::RijndaelChecked() const {
  return IsChecked(Check1);
}

void FrmSecret::FocusKeyText() {
  FocusOn(Text1);
}

void FrmSecret::CloseView() {
  Close();
}

}  // namespace scrivanta
