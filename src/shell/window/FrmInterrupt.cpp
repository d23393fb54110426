#include "shell/window/FrmInterrupt.h"

#include "shell/window/FrmInterruptControls.h"
#include "win/MessageBox.h"

namespace scrivanta {

FrmInterrupt::FrmInterrupt(WindowHost& host, std::function<void()> onStop)
    : Dialog(host, IDD_FRM_INTERRUPT), onStop_(std::move(onStop)) {}

void FrmInterrupt::OnInit() {
  SetTopMost(true);
  DragByBody();
}

bool FrmInterrupt::OnCommand(int controlId, int) {
  switch (controlId) {
    case IDCANCEL:  // the window's own close button, for Esc is taken before it gets here
      if (ShowMessageBox(handle(), u"命令还在运行，是否中断？", u"Scrivanta", MB_YESNO | MB_ICONQUESTION) != IDYES) {
        return true;
      }
      [[fallthrough]];
    case CmdStop:
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
