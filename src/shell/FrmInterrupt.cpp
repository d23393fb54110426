#include "shell/FrmInterrupt.h"

#include "shell/FrmInterruptControls.h"

namespace scrivanta {

FrmInterrupt::FrmInterrupt(WindowHost& host, std::function<void()> onStop)
    : Dialog(host, IDD_FRM_INTERRUPT), onStop_(std::move(onStop)) {}

void FrmInterrupt::OnInit() {
  SetTopMost(true);
  DragByBody();
}

bool FrmInterrupt::OnCommand(int controlId, int) {
  switch (controlId) {
    case CmdStop:
    case IDCANCEL:  // Esc, and the window's own close button
      Close();
      onStop_();
      return true;
    case CmdGoOn:
      Close();
      return true;
    default:
      return false;
  }
}

}  // namespace scrivanta
