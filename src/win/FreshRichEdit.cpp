#include "win/FreshRichEdit.h"

#include <utility>

namespace scrivanta {

FreshRichEdit::~FreshRichEdit() {
  if (box_.handle() != nullptr) {
    DestroyWindow(box_.handle());
  }
}

void FreshRichEdit::ShowAbove() {
  box_.SetReadOnly(true);
  box_.Select({0, 0});
  SetWindowPos(box_.handle(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_SHOWWINDOW);
  UpdateWindow(box_.handle());
}

void FreshRichEdit::TakePlace() {
  const HWND old = old_.handle();
  const HWND fresh = box_.handle();
  SetWindowLongPtrW(fresh, GWLP_ID, GetWindowLongPtrW(old, GWLP_ID));
  box_.SetReadOnly(old_.IsReadOnly());
  EnableWindow(fresh, IsWindowEnabled(old));
  RECT bounds{};
  GetWindowRect(old, &bounds);
  MapWindowPoints(nullptr, GetParent(old), reinterpret_cast<POINT*>(&bounds), 2);
  const bool isShown = (GetWindowLongPtrW(old, GWL_STYLE) & WS_VISIBLE) != 0;
  // Behind the old one, which so stays to be seen until the very last moment.
  SetWindowPos(fresh, old, bounds.left, bounds.top, bounds.right - bounds.left, bounds.bottom - bounds.top,
               SWP_NOACTIVATE | (isShown ? SWP_SHOWWINDOW : 0));
  if (GetFocus() == old) {
    SetFocus(fresh);
  }
  box_.SetEventMask(old_.EventMask());
  DestroyWindow(old);
  old_ = std::exchange(box_, RichEdit());
}

}  // namespace scrivanta
