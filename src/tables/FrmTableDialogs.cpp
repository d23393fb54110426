#include "tables/FrmTableDialogs.h"

#include "tables/FrmChangeToSDFFile.h"
#include "tables/FrmDataGuanLianHeBin.h"
#include "tables/FrmFenLan.h"

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

}  // namespace scrivanta
