// The window in which a shortcut is written.
#pragma once

#include <functional>
#include <optional>

#include "system/folders/FoldersDialog.h"
#include "win/Dialog.h"

namespace scrivanta {

class FrmShortcut final : public Dialog {
 public:
  using Check = std::function<void(const ShortcutForm&)>;
  FrmShortcut(WindowHost& host, ShortcutForm form, const Check& check);

  std::optional<ShortcutForm> Ask(HWND owner);

 private:
  void OnInit() override;
  bool OnCommand(int controlId, int notification) override;
  void ReadForm();

  ShortcutForm form_;
  const Check& check_;
};

}  // namespace scrivanta
