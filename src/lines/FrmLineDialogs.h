// The dialogs of the line commands on the real desktop.
#pragma once

#include <windows.h>

#include <functional>
#include <memory>

#include "lines/FrmSortParameters.h"
#include "lines/LineDialogs.h"
#include "win/WindowHost.h"

namespace scrivanta {

class FrmLineDialogs final : public LineDialogs {
 public:
  // The owner is asked for whenever a dialog is shown.
  FrmLineDialogs(WindowHost& host, std::function<HWND()> owner) : host_(host), owner_(std::move(owner)) {}

  void ShowDelLines(DelLinesDialog& dialog) override;
  void ShowSort(Workbench& workbench) override;

 private:
  WindowHost& host_;
  std::function<HWND()> owner_;
  std::unique_ptr<FrmSortParameters> sortWindow_;  // made when it is first shown
};

}  // namespace scrivanta
