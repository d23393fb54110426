#include "system/folders/FrmFolders.h"

#include "system/folders/FrmFoldersControls.h"
#include "system/folders/FrmShortcut.h"
#include "text/PlatformFile.h"

namespace scrivanta {

FrmFolders::FrmFolders(WindowHost& host, FoldersDialog& logic) : Dialog(host, IDD_FRM_FOLDERS), logic_(logic) {}

void FrmFolders::OnInit() {
  folderList_.Attach(Control(LstSpecialFolders), {{u"名称", 150}, {u"在哪里", 460}});
  shortcutList_.Attach(Control(LstShortcuts), {{u"快捷方式", 190},
                                               {u"目标", 190},
                                               {u"改为", 150},
                                               {u"备注", 130},
                                               {u"参数", 90},
                                               {u"起始位置", 120},
                                               {u"图标", 120},
                                               {u"快捷键", 90}});
  SetToolTip(TxtOldBeginning, u"旧路径的开头，如 D:\\软件");
  SetToolTip(TxtNewBeginning, u"新路径的开头，如 E:\\软件");
  logic_.Open(*this);
}

bool FrmFolders::OnCommand(int controlId, int notification) {
  return notification == BN_CLICKED && (OnFolders(controlId) || OnShortcuts(controlId));
}

bool FrmFolders::OnFolders(int controlId) {
  const std::optional<std::size_t> row = folderList_.Chosen();
  switch (controlId) {
    case CmdOpenFolder:
      if (row) {
        logic_.OpenFolder(*row);
      }
      return true;
    case CmdListFolder:
      if (row) {
        logic_.ListFolder(*this, *row);
      }
      return true;
    case CmdFoldersToDocument:
      logic_.PutFoldersIntoDocument(*this);
      return true;
    default:
      return false;
  }
}

bool FrmFolders::OnShortcuts(int controlId) {
  const std::optional<std::size_t> row = shortcutList_.Chosen();
  switch (controlId) {
    case CmdListShortcuts:
      logic_.List(*this);
      return true;
    case CmdNewShortcut:
      logic_.NewShortcut(*this);
      return true;
    case CmdEditShortcut:
      if (row) {
        logic_.EditShortcut(*this, *row);
      }
      return true;
    case CmdOpenTarget:
      if (row) {
        logic_.OpenTarget(*row);
      }
      return true;
    case CmdFindTargets:
      logic_.FindTargets(*this);
      return true;
    case CmdReplaceBeginning:
      logic_.ReplaceBeginning(*this, ControlText(TxtOldBeginning), ControlText(TxtNewBeginning));
      return true;
    case CmdChangeShortcuts:
      logic_.Change(*this);
      return true;
    case CmdTakeShortcutsBack:
      logic_.TakeBack(*this);
      return true;
    case CmdShortcutsToDocument:
      logic_.PutShortcutsIntoDocument(*this);
      return true;
    default:
      return false;
  }
}

std::optional<LRESULT> FrmFolders::OnMessage(UINT message, WPARAM, LPARAM lParam) {
  if (message != WM_NOTIFY) {
    return std::nullopt;
  }
  const NMHDR& header = *reinterpret_cast<const NMHDR*>(lParam);
  if (header.code == LVN_ITEMACTIVATE) {
    OnCommand(header.idFrom == LstSpecialFolders ? CmdOpenFolder : CmdEditShortcut, BN_CLICKED);
    return 0;
  }
  return folderList_.OnNotify(lParam) || shortcutList_.OnNotify(lParam) ? std::optional<LRESULT>(0) : std::nullopt;
}

void FrmFolders::ShowFolders(const std::vector<SpecialFolder>& folders) {
  std::vector<ReportRow> rows;
  for (const SpecialFolder& folder : folders) {
    rows.push_back({folder.name, folder.path.empty() ? u"（没有）" : TextOfPath(folder.path)});
  }
  folderList_.Show(std::move(rows));
}

std::u16string FrmFolders::Places() const {
  return ControlText(TxtShortcutPlaces);
}

void FrmFolders::SetPlaces(const std::u16string& places) {
  SetControlText(TxtShortcutPlaces, places);
}

void FrmFolders::ShowShortcuts(const std::vector<ShortcutRow>& rows) {
  std::vector<ReportRow> shown;
  for (const ShortcutRow& row : rows) {
    shown.push_back({row.file, row.target, row.corrected, row.remark, row.arguments, row.folder, row.icon, row.hotKey});
  }
  shortcutList_.Show(std::move(shown));
}

void FrmFolders::ShowRemark(const std::u16string& text) {
  SetControlText(LblFoldersRemark, text);
}

void FrmFolders::EnableChange(bool enable) {
  EnableControl(CmdChangeShortcuts, enable);
}

std::optional<ShortcutForm> FrmFolders::AskForShortcut(const ShortcutForm& form,
                                                       const std::function<void(const ShortcutForm&)>& check) {
  return FrmShortcut(host(), form, check).Ask(handle());
}

}  // namespace scrivanta
