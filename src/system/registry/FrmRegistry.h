// The window in which the registry is looked at and changed.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <string>

#include "system/registry/RegistryDialog.h"
#include "win/Dialog.h"
#include "win/ReportList.h"

namespace scrivanta {

class FrmRegistry final : public Dialog, private RegistryView {
 public:
  FrmRegistry(WindowHost& host, RegistryDialog& logic);

 private:
  void OnInit() override;
  bool OnCommand(int controlId, int notification) override;
  std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  void OnClose() override { logic_.Close(); }
  bool OnButton(int controlId);
  std::optional<LRESULT> OnTree(const NMHDR& header);
  void OpenChosenRow();

  void ShowKey(const std::u16string& key) override;
  void ShowRows(const std::vector<RegistryListRow>& rows) override;
  void ShowRemark(const std::u16string& text) override;
  void Refresh(const std::u16string& key) override;
  std::optional<RegistryValueForm> AskForValue(const RegistryValueForm& form,
                                               const std::function<void(const RegistryValueForm&)>& check) override;
  bool Confirm(const std::vector<RegistryChangeRow>& rows) override;

  HTREEITEM AddItem(HTREEITEM parent, const std::u16string& name, const std::u16string& key);
  void Fill(HTREEITEM item);
  void Empty(HTREEITEM item);
  HTREEITEM ChildNamed(HTREEITEM item, std::u16string_view name) const;
  HTREEITEM ItemOf(const std::u16string& key, bool fills);
  std::u16string NameOf(HTREEITEM item) const;
  std::u16string KeyOf(HTREEITEM item) const;
  LRESULT Tree(UINT message, WPARAM wParam, LPARAM lParam) const;

  RegistryDialog& logic_;
  ReportList list_;
  bool isShowing_ = false;  // the tree is told what to show, and need not tell
};

}  // namespace scrivanta
