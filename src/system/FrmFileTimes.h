// The window in which the dates of files are changed.
#pragma once

#include "system/FileTimesDialog.h"
#include "win/Dialog.h"
#include "win/ReportList.h"

namespace scrivanta {

class FrmFileTimes final : public Dialog, private FileTimesView {
 public:
  FrmFileTimes(WindowHost& host, FileTimesDialog& logic);

 private:
  void OnInit() override;
  bool OnCommand(int controlId, int notification) override;
  std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  FileTimesForm Form() const override;
  void AddPlace(const std::u16string& place) override;
  void ShowList(const std::vector<FileTimesRow>& rows) override;
  void ShowRemark(const std::u16string& text) override;
  void EnableChange(bool enable) override;

  void ShowForm(const FileTimesForm& form);

  FileTimesDialog& logic_;
  ReportList list_;
};

}  // namespace scrivanta
