// The window in which range, kind and direction of sorting are chosen. It stays open beside the document.
#pragma once

#include "lines/SortDialog.h"
#include "win/Dialog.h"

namespace scrivanta {

class FrmSortParameters final : public Dialog, private SortView {
 public:
  FrmSortParameters(WindowHost& host, Workbench& workbench);

  // Opens the window, or brings it to the front, with what is to be sorted now.
  void Show(HWND owner);

 private:
  void OnInit() override;
  bool OnCommand(int controlId, int notification) override;

  std::u16string From() const override;
  std::u16string To() const override;
  SortBy By() const override;
  bool IsDescending() const override;
  void SetRange(const std::u16string& from, const std::u16string& to) override;
  void SetTotal(const std::u16string& total) override;

  SortDialog logic_;
};

}  // namespace scrivanta
