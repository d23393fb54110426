#include "tables/FrmTableDialogs.h"

#include "tables/FrmChangeToSDFFile.h"
#include "tables/FrmDataGuanLianHeBin.h"
#include "tables/FrmFenLan.h"
#include "tables/FrmJiaZiMu.h"
#include "tables/FrmMergeFile.h"

namespace scrivanta {

void FrmTableDialogs::ShowFenLan(ConversionDialog& dialog) {
  FrmFenLan window(host_, dialog);
  window.ShowModal(owner_());
}

void FrmTableDialogs::ShowChangeToSDFFile(ConversionDialog& dialog) {
  FrmChangeToSDFFile window(host_, dialog);
  window.ShowModal(owner_());
}

void FrmTableDialogs::ShowDataGuanLianHeBin(JoinDialog& dialog) {
  FrmDataGuanLianHeBin window(host_, dialog);
  window.ShowModal(owner_());
}

void FrmTableDialogs::ShowJiaZiMu(InitialsDialog& dialog) {
  FrmJiaZiMu window(host_, dialog);
  window.ShowModal(owner_());
}

void FrmTableDialogs::ShowMergeFile(MergeDialog& dialog) {
  FrmMergeFile window(host_, dialog);
  window.ShowModal(owner_());
}

}  // namespace scrivanta
