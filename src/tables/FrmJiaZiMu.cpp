#include "tables/FrmJiaZiMu.h"

#include "tables/FrmJiaZiMuControls.h"

namespace scrivanta {

FrmJiaZiMu::FrmJiaZiMu(WindowHost& host, InitialsDialog& logic) : Dialog(host, IDD_FRM_JIA_ZI_MU), logic_(logic) {}

void FrmJiaZiMu::OnInit() {
  SetChecked(OptZiMuQian, true);
}

bool FrmJiaZiMu::OnCommand(int controlId, int) {
  if (controlId != CmdJiaZiMu) {
    return false;
  }
  logic_.Start(*this);
  return true;
}

InitialsPlace FrmJiaZiMu::Place() const {
  if (IsChecked(OptZiMuHou)) {
    return InitialsPlace::kBehind;
  }
  if (IsChecked(OptZiMuLie)) {
    return InitialsPlace::kColumn;
  }
  return IsChecked(OptZiMuZhi) ? InitialsPlace::kOnly : InitialsPlace::kBefore;
}

bool FrmJiaZiMu::IsFirstOnly() const {
  return IsChecked(ChkShouZiMu);
}

bool FrmJiaZiMu::IsSmall() const {
  return IsChecked(ChkXiaoXie);
}

bool FrmJiaZiMu::AreNames() const {
  return IsChecked(ChkXingMing);
}

bool FrmJiaZiMu::IsDoubtfulListed() const {
  return IsChecked(ChkDuoYinZi);
}

}  // namespace scrivanta
