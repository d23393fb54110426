// An icon in the notification area, there from Add to Remove.
#pragma once

#include <windows.h>

#include <shellapi.h>

#include <string>

namespace scrivanta {

class TrayIcon {
 public:
  // Events of the icon are sent to the window as `callbackMessage`, with the event's message in lParam.
  TrayIcon(HWND window, UINT iconId, UINT callbackMessage, HICON icon);
  TrayIcon(const TrayIcon&) = delete;
  TrayIcon& operator=(const TrayIcon&) = delete;
  ~TrayIcon();

  // A tip longer than the system shows is cut. False when there is no icon now, as while the taskbar does not run.
  bool Add(const std::u16string& tip);
  void Remove();

 private:
  NOTIFYICONDATAW data_{};
  bool added_ = false;
};

}  // namespace scrivanta
