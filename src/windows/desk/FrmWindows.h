// The window of the windows and processes on the desktop.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include "win/Dialog.h"
#include "win/ReportList.h"
#include "windows/desk/WindowsDialog.h"

namespace scrivanta {

class FrmWindows final : public Dialog, private WindowsView {
 public:
  FrmWindows(WindowHost& host, WindowsDialog& logic);

 private:
  void OnInit() override;
  bool OnCommand(int controlId, int notification) override;
  std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  bool OnWindowButton(int controlId);
  bool OnListButton(int controlId);
  std::optional<LRESULT> OnNotify(LPARAM lParam);
  bool OnDrag(UINT message);
  void TakeCross();

  std::u16string Filter() const override;
  void SetFilter(const std::u16string& filter) override;
  bool WithHidden() const override;
  void SetWithHidden(bool withHidden) override;
  void ShowWindows(const std::vector<WindowRow>& rows) override;
  void ShowProcesses(const std::vector<ProcessRow>& rows) override;
  void ChooseWindow(std::size_t row) override;
  void ShowDetails(const std::u16string& text) override;
  std::u16string Text() const override;
  void ShowText(const std::u16string& text) override;
  void ShowRemark(const std::u16string& text) override;

  LRESULT Tree(UINT message, WPARAM wParam, LPARAM lParam) const;

  WindowsDialog& logic_;
  ReportList processes_;
  std::vector<HTREEITEM> items_;  // a row each
  bool isShowing_ = false;        // the controls are told what to show, and need not tell
  bool isDragging_ = false;
};

}  // namespace scrivanta
