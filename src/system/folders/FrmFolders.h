// The window of special folders and of shortcuts.
#pragma once

#include "system/folders/FoldersDialog.h"
#include "win/Dialog.h"
#include "win/ReportList.h"

namespace scrivanta {

class FrmFolders final : public Dialog, private FoldersView {
 public:
  FrmFolders(WindowHost& host, FoldersDialog& logic);

 private:
  void OnInit() override;
  bool OnCommand(int controlId, int notification) override;
  std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  bool OnFolders(int controlId);
  bool OnShortcuts(int controlId);

  void ShowFolders(const std::vector<SpecialFolder>& folders) override;
  std::u16string Places() const override;
  void SetPlaces(const std::u16string& places) override;
  void ShowShortcuts(const std::vector<ShortcutRow>& rows) override;
  void ShowRemark(const std::u16string& text) override;
  void EnableChange(bool enable) override;
  std::optional<ShortcutForm> AskForShortcut(const ShortcutForm& form,
                                             const std::function<void(const ShortcutForm&)>& check) override;

  FoldersDialog& logic_;
  ReportList folderList_;
  ReportList shortcutList_;
};

}  // namespace scrivanta
