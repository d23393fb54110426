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
  const SecretRequest& request = dialog_->request();
  SetChecked(Check1, request.isOfFile || rijndaelChecked_);
  SetChecked(Check2, request.isEncrypting ? sealedChecked_ : request.isSealed);
  for (const int control : {Text1, Check1, Check2}) {
    SetToolTip(control, kSecretToolTip);
  }
  ShowChoice();
  CentreOverOwner();
  FocusOn(Text1);
}

bool FrmSecret::OnCommand(int controlId, int) {
  switch (controlId) {
    case IDOK:  // Enter
    case Command1:
      dialog_->Accept(*this);
      return true;
    case Check2:
      ShowChoice();
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
  SetControlText(Text2, u"");
  if (!dialog_->request().isOfFile) {
    rijndaelChecked_ = IsChecked(Check1);
  }
  if (dialog_->request().isEncrypting) {
    sealedChecked_ = IsChecked(Check2);
  }
}

void FrmSecret::ShowChoice() {
  const bool isSealed = IsChecked(Check2);
  SetControlText(LblKey, isSealed ? u"口令(&K)：" : u"密钥（数字）(&K)：");
  EnableControl(Check1, !isSealed && !dialog_->request().isOfFile);
  EnableControl(LblRepeat, isSealed && dialog_->request().isEncrypting);
  EnableControl(Text2, isSealed && dialog_->request().isEncrypting);
}

std::u16string FrmSecret::KeyText() const {
  return ControlText(Text1);
}

void FrmSecret::ClearKeyText() {
  SetControlText(Text1, u"");
}

std::u16string FrmSecret::RepeatedText() const {
  return ControlText(Text2);
}

bool FrmSecret::RijndaelChecked() const {
  return IsChecked(Check1);
}

bool FrmSecret::SealedChecked() const {
  return IsChecked(Check2);
}

void FrmSecret::FocusKeyText() {
  FocusOn(Text1);
}

void FrmSecret::CloseView() {
  Close();
}

}  // namespace scrivanta
