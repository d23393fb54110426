#include "system/folders/FrmShortcut.h"

#include <array>

#include "system/folders/FrmFoldersControls.h"
#include "text/PlatformFile.h"
#include "win/FileDialog.h"

namespace scrivanta {

namespace {

struct WindowChoice {
  ShortcutWindow window;
  const wchar_t* name;
};

constexpr std::array kWindows = {WindowChoice{ShortcutWindow::kNormal, L"常规"},
                                 WindowChoice{ShortcutWindow::kMaximised, L"最大化"},
                                 WindowChoice{ShortcutWindow::kMinimised, L"最小化"}};

}  // namespace

FrmShortcut::FrmShortcut(WindowHost& host, ShortcutForm form, const Check& check)
    : Dialog(host, IDD_FRM_SHORTCUT), form_(std::move(form)), check_(check) {}

std::optional<ShortcutForm> FrmShortcut::Ask(HWND owner) {
  return ShowModal(owner) == IDOK ? std::optional(form_) : std::nullopt;
}

void FrmShortcut::OnInit() {
  for (std::size_t i = 0; i < kWindows.size(); ++i) {
    SendMessageW(Control(CboShortcutWindow), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(kWindows[i].name));
    if (i == 0 || kWindows[i].window == form_.shortcut.window) {
      SendMessageW(Control(CboShortcutWindow), CB_SETCURSEL, i, 0);
    }
  }
  SetControlText(TxtShortcutFile, form_.file);
  SetControlText(TxtShortcutTarget, form_.shortcut.target);
  SetControlText(TxtShortcutArguments, form_.shortcut.arguments);
  SetControlText(TxtShortcutFolder, form_.shortcut.folder);
  SetControlText(TxtShortcutIcon, form_.icon);
  SetControlText(TxtShortcutHotKey, form_.hotKey);
  SetControlText(TxtShortcutDescription, form_.shortcut.description);
  SendMessageW(Control(TxtShortcutFile), EM_SETREADONLY, form_.isNew ? FALSE : TRUE, 0);
  SetToolTip(TxtShortcutFile, u"快捷方式放在哪里，以.lnk结尾");
  SetToolTip(TxtShortcutIcon, u"文件和图标的号码，如 C:\\Windows\\System32\\shell32.dll,3；空着用目标的图标");
  SetToolTip(TxtShortcutHotKey, u"如 Ctrl+Alt+K、Ctrl+Shift+F5；空着没有快捷键");
  if (!form_.isNew) {
    FocusOn(TxtShortcutTarget);
  }
}

bool FrmShortcut::OnCommand(int controlId, int) {
  if (controlId == CmdBrowseTarget) {
    const std::filesystem::path chosen = ShowFileDialog(
        handle(),
        {.title = u"快捷方式的目标", .filters = {{u"所有文件", u"*.*"}}, .initialFolder = {}, .initialName = {}});
    if (!chosen.empty()) {
      SetControlText(TxtShortcutTarget, TextOfPath(chosen));
    }
    return true;
  }
  if (controlId == IDOK) {
    ReadForm();
    check_(form_);
    Close(IDOK);
    return true;
  }
  return false;
}

void FrmShortcut::ReadForm() {
  form_.file = ControlText(TxtShortcutFile);
  form_.shortcut.target = ControlText(TxtShortcutTarget);
  form_.shortcut.arguments = ControlText(TxtShortcutArguments);
  form_.shortcut.folder = ControlText(TxtShortcutFolder);
  form_.icon = ControlText(TxtShortcutIcon);
  form_.hotKey = ControlText(TxtShortcutHotKey);
  form_.shortcut.description = ControlText(TxtShortcutDescription);
  const LRESULT window = SendMessageW(Control(CboShortcutWindow), CB_GETCURSEL, 0, 0);
  form_.shortcut.window = kWindows[static_cast<std::size_t>(window)].window;
}

}  // namespace scrivanta
