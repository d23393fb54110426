// The window that shows what a replacement in files would do.
#pragma once

#include <windows.h>

#include "search/ReplacePreview.h"
#include "win/Dialog.h"
#include "win/ReportList.h"

namespace scrivanta {

class FrmReplacePreview final : public Dialog, private PreviewView {
 public:
  FrmReplacePreview(WindowHost& host, ReplacePreview& logic);

 private:
  void OnInit() override;
  bool OnCommand(int controlId, int notification) override;
  std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  void ShowFolder(const std::u16string& text) override;
  void ShowRows(const std::vector<PreviewRow>& rows) override;
  void ShowTicks() override;
  void ShowCount(const std::u16string& text) override;
  void EnableReplace(bool enable) override;
  void Leave() override;

  ReplacePreview& logic_;
  ReportList list_;
};

}  // namespace scrivanta
