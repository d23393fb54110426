// The view of KeysDialog.
#pragma once

#include <optional>

#include "shell/window/KeysDialog.h"
#include "win/Dialog.h"
#include "win/ReportList.h"

namespace scrivanta {

class FrmKeys final : public Dialog {
 public:
  FrmKeys(WindowHost& host, const KeyMap& keys);

  // Nothing when the user has left the keys alone.
  std::optional<KeyMap> Ask(HWND owner);

 private:
  void OnInit() override;
  bool OnCommand(int controlId, int notification) override;
  std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  bool TakeKey(WPARAM code);
  void Change(int controlId);

  KeysDialog dialog_;
  ReportList list_;
  std::optional<KeyStroke> pressed_;
};

}  // namespace scrivanta
