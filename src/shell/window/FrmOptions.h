// The dialog of the options.
#pragma once

#include <windows.h>

#include <functional>

#include "shell/window/Options.h"
#include "win/Dialog.h"

namespace scrivanta {

class FrmOptions final : public Dialog, public OptionsDialog {
 public:
  // The owner is asked for when the dialog is shown.
  FrmOptions(WindowHost& host, std::function<HWND()> owner);

  std::optional<Options> Ask(Workbench& workbench, const Options& options) override;

 private:
  void OnInit() override;
  bool OnCommand(int controlId, int notification) override;
  ColourChoice ChosenColours() const;
  void BrowseForDefaultFile();

  std::function<HWND()> owner_;
  Workbench* workbench_ = nullptr;  // while the dialog is open
  Options options_;
};

}  // namespace scrivanta
