#include "windows/input/FrmSendInput.h"

#include "text/DecimalText.h"
#include "win/TopLevelWindows.h"
#include "windows/input/FrmSendInputControls.h"

namespace scrivanta {

namespace {

constexpr UINT_PTR kPointerTimer = 1;
constexpr UINT kPointerInterval = 100;  // milliseconds

}  // namespace

FrmSendInput::FrmSendInput(WindowHost& host, SendInputDialog& logic)
    : Dialog(host, IDD_FRM_SEND_INPUT), logic_(logic) {}

void FrmSendInput::OnInit() {
  list_.Attach(Control(LstInputSteps), {{u"行", 40}, {u"动作", 290}});
  constexpr WPARAM kLongestScript = 0x7FFFFFFE;
  SendMessageW(Control(TxtInputScript), EM_LIMITTEXT, kLongestScript, 0);
  SetToolTip(
      TxtInputScript,
      u"激活 标题　移动 x y　单击 [左|右|中] [x y]　双击　拖动 x1 y1 x2 y2　滚轮 n　按键 Ctrl+Shift+S　输入 文本　"
      u"等待 毫秒　等待窗口 标题 秒　循环 n … 结束　相对 标题　绝对");
  SetToolTip(CmdPlayInput, u"按Esc随时停下");
  SetTimer(handle(), kPointerTimer, kPointerInterval, nullptr);
  ShowPointer();
  logic_.Open(*this);
  FocusOn(CmdCheckInput);  // what is typed does not take the place of all that was brought along
}

bool FrmSendInput::OnCommand(int controlId, int notification) {
  if (notification != BN_CLICKED) {
    return false;
  }
  switch (controlId) {
    case CmdCheckInput:
      logic_.Check(*this);
      return true;
    case CmdPlayInput:
      logic_.Play(*this);
      return true;
    case CmdInputToDocument:
      logic_.PutIntoDocument(*this);
      return true;
    default:
      return false;
  }
}

std::optional<LRESULT> FrmSendInput::OnMessage(UINT message, WPARAM, LPARAM lParam) {
  if (message == WM_TIMER) {
    ShowPointer();
    return 0;
  }
  return message == WM_NOTIFY && list_.OnNotify(lParam) ? std::optional<LRESULT>(0) : std::nullopt;
}

void FrmSendInput::ShowPointer() {
  POINT pointer{};
  GetCursorPos(&pointer);
  if (pointer.x != pointer_.x || pointer.y != pointer_.y || ControlText(LblInputPointer).empty()) {
    pointer_ = pointer;
    SetControlText(LblInputPointer, u"指针现在在 " + DecimalText(pointer.x) + u" " + DecimalText(pointer.y));
  }
}

SendInputForm FrmSendInput::Form() const {
  return {
      .script = ControlText(TxtInputScript), .delay = ControlText(TxtInputDelay), .pause = ControlText(TxtInputPause)};
}

void FrmSendInput::ShowForm(const SendInputForm& form) {
  SetControlText(TxtInputScript, form.script);
  SetControlText(TxtInputDelay, form.delay);
  SetControlText(TxtInputPause, form.pause);
}

void FrmSendInput::ShowSteps(const std::vector<InputStepText>& steps) {
  std::vector<ReportRow> rows;
  for (const InputStepText& step : steps) {
    rows.push_back({DecimalText(step.line), step.text});
  }
  list_.Show(std::move(rows));
}

void FrmSendInput::ShowRemark(const std::u16string& text) {
  SetControlText(LblInputRemark, text);
}

// Where the user has come from gets the keys.
void FrmSendInput::StepAside(bool aside) {
  const HWND mainWindow = GetWindow(handle(), GW_OWNER);
  constexpr UINT kOrderOnly = SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE;
  if (aside) {
    ShowWindow(handle(), SW_HIDE);
    SetWindowPos(mainWindow, HWND_BOTTOM, 0, 0, 0, 0, kOrderOnly);
    BringNextProgramToFront();
  } else {
    SetWindowPos(mainWindow, HWND_TOP, 0, 0, 0, 0, kOrderOnly);
    ShowWindow(handle(), SW_SHOW);
    SetForegroundWindow(handle());
  }
}

}  // namespace scrivanta
