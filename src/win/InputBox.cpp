#include "win/InputBox.h"

#include <algorithm>

#include "text/win/WideText.h"
#include "win/Handles.h"
#include "win/InputBoxControls.h"

namespace scrivanta {

namespace {

int WidthOf(HWND window) {
  RECT bounds{};
  GetWindowRect(window, &bounds);
  return bounds.right - bounds.left;
}

// With the borders of the box that shows it.
int WidthOfText(HWND box, const std::u16string& text) {
  const WindowDeviceContext context(box);
  const HGDIOBJ before = SelectObject(context.get(), reinterpret_cast<HGDIOBJ>(SendMessageW(box, WM_GETFONT, 0, 0)));
  SIZE size{};
  GetTextExtentPoint32W(context.get(), ToWide(text).c_str(), static_cast<int>(text.size()), &size);
  SelectObject(context.get(), before);
  return size.cx + 2 * size.cy;
}

void Resize(HWND window, int wider) {
  RECT bounds{};
  GetWindowRect(window, &bounds);
  SetWindowPos(window, nullptr, 0, 0, bounds.right - bounds.left + wider, bounds.bottom - bounds.top,
               SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void MoveRight(HWND control, int distance) {
  RECT bounds{};
  GetWindowRect(control, &bounds);
  MapWindowPoints(nullptr, GetParent(control), reinterpret_cast<POINT*>(&bounds), 2);
  SetWindowPos(control, nullptr, bounds.left + distance, bounds.top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace

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
  if (texts_.assist) {
    SetControlText(IDC_INPUT_ASSISTANT, texts_.assistant);
    ShowWindow(Control(IDC_INPUT_ASSISTANT), SW_SHOW);
  }
  FocusOn(IDC_INPUT_VALUE);
  if (texts_.hasFields) {
    ShowFields();
  }
}

void InputBox::ShowFields() {
  const HWND box = Control(IDC_INPUT_VALUE);
  const int missing = std::max(0, WidthOfText(box, texts_.preset) - WidthOf(box));
  Resize(handle(), missing);
  Resize(box, missing);
  Resize(Control(IDC_INPUT_PROMPT), missing);
  for (const int button : {IDOK, IDCANCEL, IDC_INPUT_ASSISTANT}) {
    MoveRight(Control(button), missing);
  }
  CentreOverOwner();
  SendMessageW(box, EM_SETSEL, 0, 0);
  SendMessageW(box, EM_SCROLLCARET, 0, 0);
}

bool InputBox::OnCommand(int controlId, int) {
  if (controlId == IDC_INPUT_ASSISTANT) {
    SetControlText(IDC_INPUT_VALUE, texts_.assist(ControlText(IDC_INPUT_VALUE)));
    FocusOn(IDC_INPUT_VALUE);
    return true;
  }
  if (controlId != IDOK) {
    return false;
  }
  answer_ = ControlText(IDC_INPUT_VALUE);
  Close(IDOK);
  return true;
}

}  // namespace scrivanta
