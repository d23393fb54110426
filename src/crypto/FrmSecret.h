// The key dialog of the encrypting commands. One lives as long as the program and keeps the check boxes between two
// uses, but never the key.
#pragma once

#include <windows.h>

#include <functional>

#include "crypto/CryptoDialogs.h"
#include "win/Dialog.h"

namespace scrivanta {

class FrmSecret final : public Dialog, public CryptoDialogs, private SecretView {
 public:
  // The owner is asked for when the dialog is shown.
  FrmSecret(WindowHost& host, std::function<HWND()> owner);

  void ShowSecret(SecretDialog& dialog) override;

 private:
  void OnInit() override;
  bool OnCommand(int controlId, int notification) override;
  void OnClose() override;

  void ShowChoice();  // what goes with the checked cipher

  std::u16string KeyText() const override;
  void ClearKeyText() override;
  std::u16string RepeatedText() const override;
  bool RijndaelChecked() const override;
  bool SealedChecked() const override;
  void FocusKeyText() override;
  void CloseView() override;

  std::function<HWND()> owner_;
  SecretDialog* dialog_ = nullptr;  // while the window is open
  bool rijndaelChecked_ = false;
  bool sealedChecked_ = false;
};

}  // namespace scrivanta
