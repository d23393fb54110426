#include "system/FrmSystemDialogs.h"

#include "system/FrmFileTimes.h"

namespace scrivanta {

void FrmSystemDialogs::ShowFileTimes(FileTimesDialog& dialog) {
  FrmFileTimes window(host_, dialog);
  window.ShowModal(owner_());
}

}  // namespace scrivanta
