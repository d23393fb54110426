// The window in which the first and the last line to delete are typed.
#pragma once

#include "lines/DelLinesDialog.h"
#include "win/Dialog.h"

namespace scrivanta {

class FrmDelLineFromXtoY final : public Dialog, private DelLinesView {
 public:
  FrmDelLineFromXtoY(WindowHost& host, DelLinesDialog& logic);

 private:
  void OnInit() override;
  bool OnCommand(int controlId, int notification) override;

  std::u16string Start() const override;
  std::u16string End() const override;
  void SetRange(const std::u16string& start, const std::u16string& end) override;
  void CloseView() override { Close(IDOK); }

  DelLinesDialog& logic_;
};

}  // namespace scrivanta
