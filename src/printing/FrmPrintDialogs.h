// The platform's dialogs for printing and page setup.
#pragma once

#include <windows.h>

#include <functional>

#include "printing/PrintCommands.h"
#include "shell/workbench/EditBox.h"
#include "win/Handles.h"

namespace scrivanta {

class FrmPrintDialogs final : public PrintDialogs {
 public:
  // Owner and window of the edit box are asked for when a dialog opens; the box is asked for its font.
  FrmPrintDialogs(std::function<HWND()> owner, std::function<HWND()> boxWindow, EditBox& box)
      : owner_(std::move(owner)), boxWindow_(std::move(boxWindow)), box_(box) {}

  std::optional<PrintOrder> AskForOrder(const PageSetup& setup, bool hasSelection) override;
  std::optional<PageSetup> AskForSetup(const PageSetup& setup) override;

 private:
  // The printer that was chosen last, the system's when none was, with the paper of the setup.
  void PrepareDevice(const PageSetup& setup);

  std::function<HWND()> owner_;
  std::function<HWND()> boxWindow_;
  EditBox& box_;
  OwnedGlobalMemory deviceMode_;
  OwnedGlobalMemory deviceNames_;
};

}  // namespace scrivanta
