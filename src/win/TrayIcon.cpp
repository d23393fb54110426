#include "win/TrayIcon.h"

#include <algorithm>

namespace scrivanta {

TrayIcon::TrayIcon(HWND window, UINT iconId, UINT callbackMessage, HICON icon) {
  data_.cbSize = sizeof(data_);
  data_.hWnd = window;
  data_.uID = iconId;
  data_.uFlags = NIF_MESSAGE | NIF_ICON | NIF_TIP;
  data_.uCallbackMessage = callbackMessage;
  data_.hIcon = icon;
}

TrayIcon::~TrayIcon() {
  Remove();
}

bool TrayIcon::Add(const std::u16string& tip) {
  if (added_) {
    return true;
  }
  constexpr std::size_t kLongest = std::size(decltype(data_.szTip){}) - 1;
  const std::size_t length = std::min(tip.size(), kLongest);
  std::copy_n(tip.begin(), length, data_.szTip);
  data_.szTip[length] = L'\0';
  added_ = Shell_NotifyIconW(NIM_ADD, &data_) != FALSE;
  return added_;
}

void TrayIcon::Remove() {
  if (added_) {
    Shell_NotifyIconW(NIM_DELETE, &data_);
    added_ = false;
  }
}

}  // namespace scrivanta
