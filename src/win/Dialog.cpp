#include "win/Dialog.h"

#include "text/Twips.h"
#include "text/win/PlatformError.h"
#include "text/win/WideText.h"
#include "win/Colours.h"
#include "win/Monitors.h"
#include "win/WindowText.h"

namespace scrivanta {

namespace {

constexpr int kDotsPerInch = 96;  // of a screen that is not scaled

int SystemDotsPerInch() {
  return static_cast<int>(GetDpiForSystem());
}

// The edit box inside a combo box, which gets its keys and lies under the mouse; null for other controls.
HWND EditBoxOf(HWND control) {
  COMBOBOXINFO combo{};
  combo.cbSize = sizeof(combo);
  return GetComboBoxInfo(control, &combo) != FALSE ? combo.hwndItem : nullptr;
}

HICON IconOf(HWND window, WPARAM size, int classIndex) {
  const auto icon = reinterpret_cast<HICON>(SendMessageW(window, WM_GETICON, size, 0));
  return icon != nullptr ? icon : reinterpret_cast<HICON>(GetClassLongPtrW(window, classIndex));
}

}  // namespace

Dialog::~Dialog() {
  if (handle_ != nullptr) {
    const HWND window = handle_;
    Closed();
    SetWindowLongPtrW(window, DWLP_USER, 0);
    DestroyWindow(window);
  }
}

int Dialog::ShowModal(HWND owner) {
  modal_ = true;
  takesFocus_ = true;
  wasOpened_ = false;
  const INT_PTR result =
      DialogBoxParamW(host_.instance, MAKEINTRESOURCEW(templateId_), owner, &Procedure, reinterpret_cast<LPARAM>(this));
  opening_.Rethrow();
  // The result is -1, too, when the whole program is closed over an open dialog.
  if (result == -1 && !wasOpened_) {
    ThrowLastError("DialogBoxParam");
  }
  return result == -1 ? IDCANCEL : static_cast<int>(result);
}

void Dialog::ShowModeless(HWND owner) {
  CreateModeless(owner, true);
  ShowWindow(handle_, SW_SHOWNORMAL);
  SetForegroundWindow(handle_);
}

void Dialog::ShowAside(HWND owner) {
  CreateModeless(owner, false);
  const RECT screen = WorkAreas().front();
  RECT own{};
  GetWindowRect(handle_, &own);
  SetWindowPos(handle_, nullptr, screen.right - (own.right - own.left), screen.bottom - (own.bottom - own.top), 0, 0,
               SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_SHOWWINDOW);
}

void Dialog::CreateModeless(HWND owner, bool takesFocus) {
  if (handle_ == nullptr) {
    modal_ = false;
    takesFocus_ = takesFocus;
    const HWND window = CreateDialogParamW(host_.instance, MAKEINTRESOURCEW(templateId_), owner, &Procedure,
                                           reinterpret_cast<LPARAM>(this));
    opening_.Rethrow();
    if (window == nullptr) {
      ThrowLastError("CreateDialogParam");
    }
  }
}

void Dialog::Close(int result) {
  if (handle_ == nullptr) {
    return;
  }
  if (modal_) {
    EndDialog(handle_, result);
  } else {
    DestroyWindow(handle_);
  }
}

bool Dialog::OnCommand(int, int) {
  return false;
}

std::optional<LRESULT> Dialog::OnMessage(UINT, WPARAM, LPARAM) {
  return std::nullopt;
}

HWND Dialog::Control(int controlId) const {
  return GetDlgItem(handle_, controlId);
}

std::u16string Dialog::ControlText(int controlId) const {
  return WindowText(Control(controlId));
}

void Dialog::SetControlText(int controlId, std::u16string_view text) {
  SetWindowTextW(Control(controlId), ToWide(text).c_str());
}

bool Dialog::IsChecked(int controlId) const {
  return IsDlgButtonChecked(handle_, controlId) == BST_CHECKED;
}

void Dialog::SetChecked(int controlId, bool checked) {
  CheckDlgButton(handle_, controlId, checked ? BST_CHECKED : BST_UNCHECKED);
}

void Dialog::EnableControl(int controlId, bool enable) {
  EnableWindow(Control(controlId), enable ? TRUE : FALSE);
}

void Dialog::FocusOn(int controlId) {
  focusOn_ = controlId;
  // Unlike SetFocus this keeps the mark of the default button right and selects the text of an edit box.
  SendMessageW(handle_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(Control(controlId)), TRUE);
}

void Dialog::SetToolTip(int controlId, std::u16string_view text) {
  if (toolTips_ == nullptr) {
    toolTips_ = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP, 0, 0, 0, 0, handle_,
                                nullptr, host_.instance, nullptr);
    constexpr int kWidestLine = 400;  // pixels at 96 dots an inch; a longer tip is broken into lines
    SendMessageW(toolTips_, TTM_SETMAXTIPWIDTH, 0, MulDiv(kWidestLine, SystemDotsPerInch(), kDotsPerInch));
  }
  const HWND control = Control(controlId);
  SetToolTipOf(control, ToWide(text));
  if (const HWND inner = EditBoxOf(control)) {
    SetToolTipOf(inner, ToWide(text));
  }
}

void Dialog::SetToolTipOf(HWND window, std::wstring tip) {
  TTTOOLINFOW tool{};
  tool.cbSize = TTTOOLINFOW_V1_SIZE;
  tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
  tool.hwnd = handle_;
  tool.uId = reinterpret_cast<UINT_PTR>(window);
  tool.lpszText = tip.data();
  SendMessageW(toolTips_, TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
  if (!tip.empty()) {
    SendMessageW(toolTips_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
  }
}

void Dialog::HookKeys(int controlId, KeyHandler handler) {
  HWND control = Control(controlId);
  if (const HWND inner = EditBoxOf(control)) {
    control = inner;
  }
  hooks_.push_back(std::make_unique<Subclass>(
      host_, control, [handler = std::move(handler)](UINT message, WPARAM key, LPARAM) -> std::optional<LRESULT> {
        return message == WM_KEYDOWN && handler(key) ? std::optional<LRESULT>(0) : std::nullopt;
      }));
}

void Dialog::SetTopMost(bool topMost) {
  SetWindowPos(handle_, topMost ? HWND_TOPMOST : HWND_NOTOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

void Dialog::CentreOverOwner() {
  const HWND owner = GetWindow(handle_, GW_OWNER);
  RECT around{};
  RECT own{};
  GetWindowRect(owner != nullptr ? owner : GetDesktopWindow(), &around);
  GetWindowRect(handle_, &own);
  const LONG left = (around.left + around.right - own.right + own.left) / 2;
  const LONG top = (around.top + around.bottom - own.bottom + own.top) / 2;
  OffsetRect(&own, left - own.left, top - own.top);
  const RECT kept = KeepOnScreen(own);
  SetWindowPos(handle_, nullptr, kept.left, kept.top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

POINT Dialog::CornerInTwips() const {
  RECT bounds{};
  GetWindowRect(handle_, &bounds);
  const int dotsPerInch = SystemDotsPerInch();
  return {PixelsToTwips(bounds.left, dotsPerInch), PixelsToTwips(bounds.top, dotsPerInch)};
}

void Dialog::MoveToTwips(POINT corner) {
  RECT bounds{};
  GetWindowRect(handle_, &bounds);
  const int dotsPerInch = SystemDotsPerInch();
  OffsetRect(&bounds, TwipsToPixels(corner.x, dotsPerInch) - bounds.left,
             TwipsToPixels(corner.y, dotsPerInch) - bounds.top);
  const RECT kept = KeepOnScreen(bounds);
  SetWindowPos(handle_, nullptr, kept.left, kept.top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

INT_PTR CALLBACK Dialog::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_INITDIALOG) {
    return reinterpret_cast<Dialog*>(lParam)->Open(window);
  }
  auto* const self = reinterpret_cast<Dialog*>(GetWindowLongPtrW(window, DWLP_USER));
  if (self == nullptr) {
    return FALSE;
  }
  try {
    return self->Handle(message, wParam, lParam);
  } catch (...) {
    self->host_.onError(window, std::current_exception());
    return TRUE;
  }
}

// What cannot be opened is closed again, and the failure goes to whoever wanted to show it.
INT_PTR Dialog::Open(HWND window) noexcept {
  SetWindowLongPtrW(window, DWLP_USER, reinterpret_cast<LONG_PTR>(this));
  handle_ = window;
  wasOpened_ = true;
  const bool isOpen = opening_.Hold([this] {
    host_.loop.AddDialog(handle_);
    host_.colours.Dress(handle_);
    ShowOwnersIcon();
    CentreOverOwner();
    OnInit();
  });
  if (!isOpen) {
    const HWND failed = handle_;
    Closed();
    SetWindowLongPtrW(failed, DWLP_USER, 0);
    if (modal_) {
      EndDialog(failed, IDCANCEL);
    } else {
      DestroyWindow(failed);
    }
  }
  return focusOn_ || !takesFocus_ ? FALSE : TRUE;
}

void Dialog::ShowOwnersIcon() {
  if (const HWND owner = GetWindow(handle_, GW_OWNER)) {
    const HICON icon = IconOf(owner, ICON_BIG, GCLP_HICON);
    const HICON smallIcon = IconOf(owner, ICON_SMALL, GCLP_HICONSM);
    SendMessageW(handle_, WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(icon));
    SendMessageW(handle_, WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(smallIcon != nullptr ? smallIcon : icon));
  }
}

void Dialog::Closed() {
  host_.loop.RemoveDialog(handle_);
  host_.colours.Forget(handle_);
  hooks_.clear();
  toolTips_ = nullptr;
  focusOn_.reset();
  handle_ = nullptr;
}

INT_PTR Dialog::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_COMMAND:
      if (OnCommand(LOWORD(wParam), HIWORD(wParam))) {
        return TRUE;
      }
      if (LOWORD(wParam) == IDCANCEL) {
        Close();
        return TRUE;
      }
      return FALSE;
    case WM_LBUTTONDOWN:
      if (dragByBody_) {
        ReleaseCapture();
        SendMessageW(handle_, WM_NCLBUTTONDOWN, HTCAPTION, lParam);
        return TRUE;
      }
      break;
    case WM_DESTROY:
      try {
        OnClose();
      } catch (...) {
        Closed();
        throw;
      }
      Closed();
      return TRUE;
    default:
      break;
  }
  const std::optional<LRESULT> answer = OnMessage(message, wParam, lParam);
  if (!answer) {
    return FALSE;
  }
  SetWindowLongPtrW(handle_, DWLP_MSGRESULT, *answer);
  return TRUE;
}

}  // namespace scrivanta
