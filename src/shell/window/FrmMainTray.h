// The main window in the tray while it is minimised: its icon, and what clicks on it do.
#pragma once

#include <windows.h>

#include <functional>
#include <optional>

#include "win/TrayIcon.h"

namespace scrivanta {

class FrmMainTray {
 public:
  // The icon's events come as mouse moves, with the event's message in the place of the position.
  static constexpr UINT kMessage = WM_MOUSEMOVE;

  // Told of the command that was chosen in the icon's menu.
  explicit FrmMainTray(std::function<void(int commandId)> onCommand) : onCommand_(std::move(onCommand)) {}

  void Create(HWND window, HICON icon);
  void Destroy() { icon_.reset(); }
  // The window is minimised: it is hidden, unless there is no icon now to have it back by.
  void HoldMinimised();
  // It is not any more.
  void Release();
  // The taskbar, and the icon with it, has been made anew.
  void RenewIcon();
  void HandleEvent(LPARAM lParam);

 private:
  void Restore() const;
  void OpenMenu() const;

  std::function<void(int commandId)> onCommand_;
  HWND window_ = nullptr;
  std::optional<TrayIcon> icon_;
};

}  // namespace scrivanta
