#include "shell/window/FrmMainBusy.h"

#include <algorithm>
#include <string>

#include "text/DecimalText.h"

namespace scrivanta {

namespace {

std::u16string PercentText(int percent) {
  return u"已完成:" + DecimalText(percent) + u"%";
}

}  // namespace

FrmMainBusy::FrmMainBusy(WindowHost& host, FrmMainBars& bars)
    : host_(host), bars_(bars), interrupt_(host, [this] { RequestStop(); }) {}

void FrmMainBusy::SetEditBox(HWND editBox) {
  std::ranges::replace(disabled_, editBox_, editBox);
  if (focus_ == editBox_) {
    focus_ = editBox;
  }
  editBox_ = editBox;
}

void FrmMainBusy::ShowHourglass(bool show) {
  hourglass_ = show;
  stopRequested_ = false;
  SetCursor(LoadCursorW(nullptr, show ? IDC_WAIT : IDC_ARROW));
}

void FrmMainBusy::Lock() {
  focus_ = GetFocus();
  host_.loop.EnableAccelerators(false);
  EnableMenuBar(false);
  std::vector<HWND> windows = host_.loop.dialogs();
  windows.push_back(editBox_);
  for (const HWND window : windows) {
    // Of a window that is disabled already somebody else takes care.
    if (EnableWindow(window, FALSE) == FALSE) {
      disabled_.push_back(window);
    }
  }
  // Without a focus the keys would be lost, and Esc among them. The edit box, disabled by now, does not take it away.
  SetFocus(mainWindow_);
}

void FrmMainBusy::Unlock() {
  interrupt_.Close();
  for (const HWND window : disabled_) {
    EnableWindow(window, TRUE);
  }
  disabled_.clear();
  EnableMenuBar(true);
  host_.loop.EnableAccelerators(true);
  bars_.SetWork({});
  // The main window must not keep the focus, which it would only hand on when it gets it: a command may have begun
  // while nothing had it.
  SetFocus(focus_ != mainWindow_ && IsWindow(focus_) != FALSE ? focus_ : editBox_);
}

void FrmMainBusy::HandleEvents() {
  host_.loop.Pump([this](const MSG& message) {
    const bool isEscape = message.message == WM_KEYDOWN && message.wParam == VK_ESCAPE;
    stopRequested_ = stopRequested_ || isEscape;
    return isEscape;
  });
}

void FrmMainBusy::ShowPercent(int percent) {
  bars_.SetWork(PercentText(percent));
}

void FrmMainBusy::OfferToStop() {
  DWORD process = 0;
  GetWindowThreadProcessId(GetForegroundWindow(), &process);
  // Who works in another program meanwhile is not disturbed there.
  if (process == GetCurrentProcessId()) {
    interrupt_.ShowModeless(mainWindow_);
  } else {
    interrupt_.ShowAside(mainWindow_);
  }
}

void FrmMainBusy::EnableMenuBar(bool enable) const {
  const HMENU bar = GetMenu(mainWindow_);
  for (int position = GetMenuItemCount(bar); position-- > 0;) {
    EnableMenuItem(bar, static_cast<UINT>(position), MF_BYPOSITION | (enable ? MF_ENABLED : MF_GRAYED));
  }
  DrawMenuBar(mainWindow_);
}

}  // namespace scrivanta
