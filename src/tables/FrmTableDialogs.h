// The dialogs of the commands that work on tables on the real desktop.
#pragma once

#include <windows.h>

#include <functional>

#include "tables/TableDialogs.h"
#include "win/WindowHost.h"

namespace scrivanta {

class FrmTableDialogs final : public TableDialogs {
 public:
  // The owner is asked for whenever a dialog is shown.
  FrmTableDialogs(WindowHost& host, std::function<HWND()> owner) : host_(host), owner_(std::move(owner)) {}

  void ShowFenLan(ConversionDialog& dialog) override;
  void ShowChangeToSDFFile(ConversionDialog& dialog) override;
  void ShowDataGuanLianHeBin(JoinDialog& dialog) override;
  void ShowJiaZiMu(InitialsDialog& dialog) override;
  void ShowMergeFile(MergeDialog& dialog) override;

 private:
  WindowHost& host_;
  std::function<HWND()> owner_;
};

}  // namespace scrivanta
