// The window in which the files to merge are gathered.
#pragma once

#include "tables/MergeDialog.h"
#include "win/Dialog.h"

namespace scrivanta {

class FrmMergeFile final : public Dialog, private MergeView {
 public:
  FrmMergeFile(WindowHost& host, MergeDialog& logic);

 private:
  void OnInit() override;
  bool OnCommand(int controlId, int notification) override;
  std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  std::u16string Pattern() const override;
  bool WithSubfolders() const override;
  bool WithTitles() const override;
  bool IntoFile() const override;
  void ShowPlaces(const std::vector<std::u16string>& lines) override;
  void CloseView() override { Close(IDOK); }

  MergeDialog& logic_;
};

}  // namespace scrivanta
