// The window in which keys and mouse are written, looked at and played.
#pragma once

#include "win/Dialog.h"
#include "win/ReportList.h"
#include "windows/input/SendInputDialog.h"

namespace scrivanta {

class FrmSendInput final : public Dialog, private SendInputView {
 public:
  FrmSendInput(WindowHost& host, SendInputDialog& logic);

 private:
  void OnInit() override;
  bool OnCommand(int controlId, int notification) override;
  std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  SendInputForm Form() const override;
  void ShowForm(const SendInputForm& form) override;
  void ShowSteps(const std::vector<InputStepText>& steps) override;
  void ShowRemark(const std::u16string& text) override;
  void StepAside(bool aside) override;

  void ShowPointer();

  SendInputDialog& logic_;
  ReportList list_;
  POINT pointer_{};
};

}  // namespace scrivanta
