#include "win/InputBox.h"

#include "text/win/WideText.h"
#include "win/InputBoxControls.h"

namespace scrivanta {

InputBox::InputBox(WindowHost& host, InputBoxTexts texts) : Dialog(host, IDD_INPUT_BOX), texts_(std::move(texts)) {}

std::u16string InputBox::Ask(HWND owner) {
  answer_.clear();
  ShowModal(owner);
  return answer_;
}

void InputBox::OnInit() {
  SetWindowTextW(handle(), ToWide(texts_.title).c_str());
  SetControlText(IDC_INPUT_PROMPT, texts_.prompt);
  SetControlText(IDOK, texts_.ok);
  SetControlText(IDCANCEL, texts_.cancel);
  constexpr WPARAM kLimit = 0x7ffffffe;
  SendMessageW(Control(IDC_INPUT_VALUE), EM_SETLIMITTEXT, kLimit, 0);
  if (texts_.hidden) {
    constexpr WPARAM kDot = 0x25CF;
    SendMessageW(Control(IDC_INPUT_VALUE), EM_SETPASSWORDCHAR, kDot, 0);
  }
  SetControlText(IDC_INPUT_VALUE, texts_.preset);
  FocusOn(IDC_INPUT_VALUE);
}

bool InputBox::OnCommand(int controlId, int) {
  if (controlId != IDOK) {
    return false;
  }
  answer_ = ControlText(IDC_INPUT_VALUE);
  Close(IDOK);
  return true;
}

}  // namespace scrivanta
