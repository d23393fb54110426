#include "shell/window/FrmMainClosing.h"

#include <utility>

#include "shell/window/FrmMainTimers.h"

namespace scrivanta {

namespace {

constexpr UINT kIdleInterval = 20;  // milliseconds

}  // namespace

void FrmMainClosing::Close(HWND window) {
  if (prompts_.isAsking()) {
    return;  // first the question that stands
  }
  if (work_.IsBusy()) {
    OfferToStop(window);
    return;
  }
  if (IsIconic(window) == FALSE) {
    surroundings_.runGuarded(surroundings_.keepPlacement);
  }
  if (MayClose()) {
    recovery_.Forget();
    DestroyWindow(window);
  }
}

void FrmMainClosing::OfferToStop(HWND window) {
  if (std::exchange(isAsked_, true)) {
    return;
  }
  const Answer answer =
      prompts_.Ask({.text = u"正在处理，是否中断并退出？", .buttons = Buttons::kYesNo, .icon = Icon::kQuestion});
  isAsked_ = false;
  if (answer == Answer::kYes) {
    busy_.RequestStop();
    SetTimer(window, kCloseWhenIdle, kIdleInterval, nullptr);
  }
}

// Whatever runs the work, a command, a dialog or a start, has come back when the window is free again.
void FrmMainClosing::HandleTimer(HWND window) const {
  if (!work_.IsBusy() && IsWindowEnabled(window) != FALSE) {
    KillTimer(window, kCloseWhenIdle);
    PostMessageW(window, WM_CLOSE, 0, 0);
  }
}

// The system may end the session whatever the answer, and while the question stands: the snapshot is up to date before,
// and stays until the session really ends with the user's leave. A question that stands is to be answered first.
bool FrmMainClosing::MayEndSession() {
  recovery_.Complete();
  mayEndSession_ = !work_.IsBusy() && !prompts_.isAsking() && MayClose();
  return mayEndSession_;
}

void FrmMainClosing::HandleSessionEnd(bool ends) {
  if (ends && mayEndSession_) {
    recovery_.Forget();
  }
}

// False when the user calls it off, or when the document could not be saved.
bool FrmMainClosing::MayClose() {
  bool mayClose = false;
  surroundings_.runGuarded([this, &mayClose] { mayClose = document_.MayClose(); });
  return mayClose;
}

}  // namespace scrivanta
