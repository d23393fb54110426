// The window in which the place and the form of the pinyin initials are chosen.
#pragma once

#include "tables/InitialsDialog.h"
#include "win/Dialog.h"

namespace scrivanta {

class FrmJiaZiMu final : public Dialog, private InitialsView {
 public:
  FrmJiaZiMu(WindowHost& host, InitialsDialog& logic);

 private:
  void OnInit() override;
  bool OnCommand(int controlId, int notification) override;

  InitialsPlace Place() const override;
  bool IsFirstOnly() const override;
  bool IsSmall() const override;
  bool AreNames() const override;
  bool IsDoubtfulListed() const override;
  void CloseView() override { Close(IDOK); }

  InitialsDialog& logic_;
};

}  // namespace scrivanta
