#include "shell/window/FrmKeys.h"

#include "shell/window/FrmKeysControls.h"
#include "win/Keys.h"

namespace scrivanta {

namespace {

bool IsModifier(WPARAM code) {
  return code == VK_CONTROL || code == VK_SHIFT || code == VK_MENU || code == VK_PROCESSKEY;
}

}  // namespace

FrmKeys::FrmKeys(WindowHost& host, const KeyMap& keys) : Dialog(host, IDD_FRM_KEYS), dialog_(keys) {}

std::optional<KeyMap> FrmKeys::Ask(HWND owner) {
  return ShowModal(owner) == IDOK ? std::optional(dialog_.keys()) : std::nullopt;
}

void FrmKeys::OnInit() {
  list_.Attach(Control(LstKeys), {{u"菜单", 96}, {u"命令", 240}, {u"快捷键", 150}});
  list_.Show(dialog_.Rows());
  LVITEMW first{};
  first.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
  first.state = first.stateMask;
  SendMessageW(Control(LstKeys), LVM_SETITEMSTATE, 0, reinterpret_cast<LPARAM>(&first));
  SetControlText(LblKeyAnswer, u"选一个命令，在框里按下要用的键，再按“设定”。");
  HookKeys(TxtKey, [this](WPARAM code) { return TakeKey(code); });
}

// The box shows the key itself. One that can be no command's leaves what was pressed before.
bool FrmKeys::TakeKey(WPARAM code) {
  if (IsModifier(code)) {
    return true;
  }
  const KeyStroke key{
      .ctrl = IsKeyDown(VK_CONTROL), .shift = IsKeyDown(VK_SHIFT), .code = static_cast<std::uint16_t>(code)};
  const std::u16string reason = WhyNoCommandMayHave(key);
  SetControlText(LblKeyAnswer, reason.empty() ? u"" : u"这个键" + reason + u"。");
  if (reason.empty()) {
    pressed_ = key;
    SetControlText(TxtKey, KeyStrokeText(key));
  }
  return true;
}

bool FrmKeys::OnCommand(int controlId, int) {
  switch (controlId) {
    case CmdAssignKey:
    case CmdClearKey:
    case CmdRestoreKey:
      Change(controlId);
      return true;
    case IDOK:
      Close(IDOK);
      return true;
    default:
      return false;
  }
}

void FrmKeys::Change(int controlId) {
  const std::optional<std::size_t> row = list_.Chosen();
  if (!row || (controlId == CmdAssignKey && !pressed_)) {
    SetControlText(LblKeyAnswer, row ? u"请先在框里按下要用的键。" : u"请先选一个命令。");
    return;
  }
  const std::u16string answer = controlId == CmdAssignKey  ? dialog_.Assign(*row, *pressed_)
                                : controlId == CmdClearKey ? dialog_.Clear(*row)
                                                           : dialog_.Restore(*row);
  SetControlText(LblKeyAnswer, answer.empty() ? u"已改，按“确定”后生效。" : answer + u"。");
  list_.Show(dialog_.Rows());
}

std::optional<LRESULT> FrmKeys::OnMessage(UINT message, WPARAM, LPARAM lParam) {
  return message == WM_NOTIFY && list_.OnNotify(lParam) ? std::optional<LRESULT>(0) : std::nullopt;
}

}  // namespace scrivanta
