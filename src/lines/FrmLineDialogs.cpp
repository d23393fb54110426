#include "lines/FrmLineDialogs.h"

#include "lines/FrmDelLineFromXtoY.h"

namespace scrivanta {

void FrmLineDialogs::ShowDelLines(DelLinesDialog& dialog) {
  FrmDelLineFromXtoY window(host_, dialog);
  window.ShowModal(owner_());
}

void FrmLineDialogs::ShowSort(Workbench& workbench) {
  if (sortWindow_ == nullptr) {
    sortWindow_ = std::make_unique<FrmSortParameters>(host_, workbench);
  }
  sortWindow_->Show(owner_());
}

}  // namespace scrivanta
