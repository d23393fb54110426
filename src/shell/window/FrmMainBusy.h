// The main window while a command works: locked, with the hourglass, and stoppable.
#pragma once

#include <windows.h>

#include <vector>

#include "shell/window/FrmInterrupt.h"
#include "shell/window/FrmMainBars.h"
#include "shell/window/WindowWork.h"
#include "win/WindowHost.h"

namespace scrivanta {

class FrmMainBusy final : public BusyScreen {
 public:
  FrmMainBusy(WindowHost& host, FrmMainBars& bars);

  // The window whose menu is disabled, and the edit box in it, which may become another one while the window is locked.
  void SetMainWindow(HWND mainWindow) { mainWindow_ = mainWindow; }
  void SetEditBox(HWND editBox);
  bool hasHourglass() const noexcept { return hourglass_; }
  void RequestStop() noexcept { stopRequested_ = true; }

  void ShowHourglass(bool show) override;
  void Lock() override;
  void Unlock() override;
  void HandleEvents() override;
  bool IsStopRequested() const override { return stopRequested_; }
  void ShowPercent(int percent) override;
  void OfferToStop() override;

 private:
  void EnableMenuBar(bool enable) const;

  WindowHost& host_;
  FrmMainBars& bars_;
  FrmInterrupt interrupt_;
  HWND mainWindow_ = nullptr;
  HWND editBox_ = nullptr;
  HWND focus_ = nullptr;
  std::vector<HWND> disabled_;
  bool hourglass_ = false;
  bool stopRequested_ = false;
};

}  // namespace scrivanta
