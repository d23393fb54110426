#include "lines/FrmDelLineFromXtoY.h"

#include "lines/FrmDelLineFromXtoYControls.h"

namespace scrivanta {

FrmDelLineFromXtoY::FrmDelLineFromXtoY(WindowHost& host, DelLinesDialog& logic)
    : Dialog(host, IDD_FRM_DEL_LINE_FROM_X_TO_Y), logic_(logic) {}

void FrmDelLineFromXtoY::OnInit() {
  // The arrows move between the boxes, as Tab and Shift+Tab do.
  for (const int box : {TxtDelLineStart, TxtDelLineEnd}) {
    HookKeys(box, [this](WPARAM key) {
      if (key != VK_DOWN && key != VK_UP) {
        return false;
      }
      SendMessageW(handle(), WM_NEXTDLGCTL, key == VK_UP ? TRUE : FALSE, FALSE);
      return true;
    });
  }
}

bool FrmDelLineFromXtoY::OnCommand(int controlId, int) {
  // Enter sends IDOK where the focus is in a text box.
  if (controlId != CmdFrmDelLineFromXtoY && controlId != IDOK) {
    return false;
  }
  logic_.Delete(*this);
  return true;
}

std::u16string FrmDelLineFromXtoY::Start() const {
  return ControlText(TxtDelLineStart);
}

std::u16string FrmDelLineFromXtoY::End() const {
  return ControlText(TxtDelLineEnd);
}

void FrmDelLineFromXtoY::SetRange(const std::u16string& start, const std::u16string& end) {
  SetControlText(TxtDelLineStart, start);
  SetControlText(TxtDelLineEnd, end);
}

}  // namespace scrivanta
