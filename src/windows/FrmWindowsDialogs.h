// The dialogs of the commands about windows on the real desktop, and the windows that stand on it.
#pragma once

#include <windows.h>

#include <functional>

#include "win/WindowHost.h"
#include "windows/CoordinatesDialog.h"
#include "windows/WindowsDialogs.h"

namespace scrivanta {

class FrmWindowsDialogs final : public WindowsDialogs, public WindowPlaces {
 public:
  // The owner is asked for whenever a dialog is shown.
  FrmWindowsDialogs(WindowHost& host, std::function<HWND()> owner) : host_(host), owner_(std::move(owner)) {}

  void ShowCoordinates(CoordinatesDialog& dialog) override;
  void ShowSendInput(SendInputDialog& dialog) override;
  void ShowWindows(WindowsDialog& dialog) override;

  std::vector<std::u16string> Captions() const override;
  std::optional<ScreenPoint> ClientCorner(std::u16string_view caption) const override;

 private:
  WindowHost& host_;
  std::function<HWND()> owner_;
};

}  // namespace scrivanta
