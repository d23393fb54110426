#include "shell/window/FrmMainTray.h"

#include "shell/window/FrmMainMenu.h"
#include "shell/window/MenuTree.h"
#include "win/WindowText.h"

namespace scrivanta {

namespace {

constexpr UINT kIconId = 1;

}  // namespace

void FrmMainTray::Create(HWND window, HICON icon) {
  window_ = window;
  icon_.emplace(window, kIconId, kMessage, icon);
}

void FrmMainTray::HoldMinimised() {
  if (icon_ && icon_->Add(WindowText(window_))) {
    ShowWindow(window_, SW_HIDE);
  }
}

void FrmMainTray::Release() {
  if (icon_) {
    icon_->Remove();
  }
}

void FrmMainTray::RenewIcon() {
  Release();
  icon_->Add(WindowText(window_));
}

void FrmMainTray::HandleEvent(LPARAM lParam) {
  if (IsIconic(window_) == FALSE) {
    return;
  }
  if (LOWORD(lParam) == WM_LBUTTONUP) {
    Restore();
  } else if (LOWORD(lParam) == WM_RBUTTONUP) {
    OpenMenu();
  }
}

void FrmMainTray::Restore() const {
  ShowWindow(window_, SW_SHOW);
  ShowWindow(window_, SW_RESTORE);
  SetForegroundWindow(window_);
}

void FrmMainTray::OpenMenu() const {
  const int note = *MenuCommandId("mnuNote");
  POINT at{};
  GetCursorPos(&at);
  SetForegroundWindow(window_);  // else the menu would stay when the user clicks elsewhere
  OpenChoices(window_, at,
              {{.caption = u"&R 还原", .run = [this] { Restore(); }},
               {.caption = std::u16string(MenuEntryOf(note)->caption), .run = [this, note] { onCommand_(note); }}});
}

}  // namespace scrivanta
