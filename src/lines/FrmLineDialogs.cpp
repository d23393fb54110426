#include "lines/FrmLineDialogs.h"

#include "lines/FrmDelLineFromXtoY.h"

namespace scrivanta {

void FrmLineDialogs::ShowDelLines(DelLinesDialog& dialog) {
  FrmDelLineFromXtoY window(host_, dialog);
  window.ShowModal(owner_());
}

}  // namespace scrivanta
