// The dialogs of the system commands on the real desktop.
#pragma once

#include <windows.h>

#include <functional>

#include "system/SystemDialogs.h"
#include "win/WindowHost.h"

namespace scrivanta {

class FrmSystemDialogs final : public SystemDialogs {
 public:
  // The owner is asked for whenever a dialog is shown.
  FrmSystemDialogs(WindowHost& host, std::function<HWND()> owner) : host_(host), owner_(std::move(owner)) {}

  void ShowFileTimes(FileTimesDialog& dialog) override;
  void ShowRegistry(RegistryDialog& dialog) override;
  void ShowFolders(FoldersDialog& dialog) override;

 private:
  WindowHost& host_;
  std::function<HWND()> owner_;
};

}  // namespace scrivanta
