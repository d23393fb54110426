// The find and replace dialog.
#pragma once

#include <windows.h>

#include <shellapi.h>

#include <memory>

#include "search/FindDialog.h"
#include "search/SearchDialogs.h"
#include "win/Dialog.h"

namespace scrivanta {

class FrmFind final : public Dialog, private FindView {
 public:
  FrmFind(WindowHost& host, Workbench& workbench, FindState& state);
  ~FrmFind() override;

  // Opens the window, or brings it to the front with what is selected now.
  void Show(HWND owner, FindDialogFocus focus);

 private:
  void OnInit() override;
  bool OnCommand(int controlId, int notification) override;
  std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  void OnClose() override;
  void SetUpDropBox();
  void SetTips();
  void Press(int controlId);
  bool OnKey(int controlId, WPARAM key);
  void TakeDrop(HDROP drop);

  std::u16string FindBox() const override;
  std::u16string ReplaceBox() const override;
  void SetFindBox(const std::u16string& text, const std::vector<std::u16string>& list) override;
  void SetReplaceBox(const std::u16string& text, const std::vector<std::u16string>& list) override;
  bool SearchesUp() const override;
  bool MatchesCase() const override;
  bool IsRegExp() const override;
  bool KeepsFormatting() const override;
  bool IsInPart() const override;
  void SetInPart(bool isInPart) override;
  void SetOptions(bool searchesUp, bool matchesCase, bool isRegExp) override;
  std::u16string DropBox() const override;
  void SetDropBox(const std::u16string& text) override;
  void SetReplaceTip(const std::u16string& tip) override;
  void ShowPreview(ReplacePreview& preview) override;
  DialogPlace Place() const override;
  void SetPlace(const DialogPlace& place) override;
  void MoveOff(const ScreenRect& place) override;

  FindDialog logic_;
  std::unique_ptr<Subclass> dropBox_;
};

}  // namespace scrivanta
