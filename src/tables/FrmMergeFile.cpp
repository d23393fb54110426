#include "tables/FrmMergeFile.h"

#include "tables/FrmMergeFileControls.h"
#include "text/win/WideText.h"
#include "win/DroppedFiles.h"
#include "win/FileDialog.h"

namespace scrivanta {

FrmMergeFile::FrmMergeFile(WindowHost& host, MergeDialog& logic) : Dialog(host, IDD_FRM_MERGE_FILE), logic_(logic) {}

void FrmMergeFile::OnInit() {
  SetControlText(TxtMergePattern, u"*.txt");
  SetChecked(OptMergeToDocument, true);
  FocusOn(CmdMergeAddFile);
}

bool FrmMergeFile::OnCommand(int controlId, int notification) {
  if (notification != BN_CLICKED) {
    return false;
  }
  switch (controlId) {
    case CmdMergeAddFile:
      logic_.Add(ShowMultipleFileDialog(handle(), {.title = u"添加文件",
                                                   .filters = {{u"文本文件", u"*.txt"}, {u"所有文件", u"*.*"}},
                                                   .initialFolder = {},
                                                   .initialName = {}}),
                 *this);
      return true;
    case CmdMergeAddFolder: {
      const std::filesystem::path folder = ShowFolderDialog(handle(), u"添加文件夹", {});
      if (!folder.empty()) {
        logic_.Add({folder}, *this);
      }
      return true;
    }
    case CmdMergeRemove:
      logic_.Remove(static_cast<std::size_t>(SendMessageW(Control(LstMergeFile), LB_GETCURSEL, 0, 0)), *this);
      return true;
    case CmdStartMerge:
      logic_.Start(*this);
      return true;
    default:
      return false;
  }
}

std::optional<LRESULT> FrmMergeFile::OnMessage(UINT message, WPARAM wParam, LPARAM) {
  if (message != WM_DROPFILES) {
    return std::nullopt;
  }
  logic_.Add(TakeDroppedFiles(reinterpret_cast<HDROP>(wParam)), *this);
  return 0;
}

std::u16string FrmMergeFile::Pattern() const {
  return ControlText(TxtMergePattern);
}

bool FrmMergeFile::WithSubfolders() const {
  return IsChecked(ChkMergeSubfolder);
}

bool FrmMergeFile::WithTitles() const {
  return IsChecked(ChkMergeTitle);
}

bool FrmMergeFile::IntoFile() const {
  return IsChecked(OptMergeToFile);
}

void FrmMergeFile::ShowPlaces(const std::vector<std::u16string>& lines) {
  const HWND list = Control(LstMergeFile);
  SendMessageW(list, LB_RESETCONTENT, 0, 0);
  for (const std::u16string& line : lines) {
    SendMessageW(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(ToWide(line).c_str()));
  }
}

}  // namespace scrivanta
