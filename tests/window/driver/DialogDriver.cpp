#include "window/driver/DialogDriver.h"

#include <commctrl.h>

#include <algorithm>
#include <array>

#include "text/win/WideText.h"
#include "window/driver/Wait.h"
#include "window/driver/WindowProbe.h"

namespace scrivanta {

namespace {

constexpr WPARAM kLongestToolTip = 1024;  // characters

// The messages of combo and list boxes that do the same.
struct ItemMessages {
  UINT count;
  UINT length;
  UINT text;
  UINT select;
  WORD selected;  // the notification
};

ItemMessages MessagesOf(HWND control) {
  if (ClassOf(control) == L"ListBox") {
    return {LB_GETCOUNT, LB_GETTEXTLEN, LB_GETTEXT, LB_SETCURSEL, LBN_SELCHANGE};
  }
  return {CB_GETCOUNT, CB_GETLBTEXTLEN, CB_GETLBTEXT, CB_SETCURSEL, CBN_SELCHANGE};
}

struct ToolTipSearch {
  HWND control;
  std::u16string text;
};

// Tool tip windows are hidden until the mouse rests; each is asked whether it knows the control.
BOOL CALLBACK AskToolTips(HWND window, LPARAM parameter) {
  auto& search = *reinterpret_cast<ToolTipSearch*>(parameter);
  if (ClassOf(window) != TOOLTIPS_CLASSW) {
    return TRUE;
  }
  std::array<wchar_t, kLongestToolTip> text{};
  TTTOOLINFOW tool{};
  tool.cbSize = TTTOOLINFOW_V2_SIZE;
  tool.uFlags = TTF_IDISHWND;
  tool.hwnd = GetParent(search.control);
  tool.uId = reinterpret_cast<UINT_PTR>(search.control);
  tool.lpszText = text.data();
  Send(window, TTM_GETTEXTW, text.size(), reinterpret_cast<LPARAM>(&tool));
  if (text.front() == L'\0') {
    return TRUE;
  }
  search.text = FromWide(text.data());
  return FALSE;
}

}  // namespace

HWND DialogDriver::Control(int controlId) const {
  const HWND control = GetDlgItem(window_, controlId);
  if (control == nullptr) {
    FailWithPicture("the dialog \"" + Shown(Caption()) + "\" has no control " + std::to_string(controlId));
  }
  return control;
}

DialogDriver& DialogDriver::Type(int controlId, std::u16string_view text) {
  const HWND control = Control(controlId);
  SetTextOf(control, text);
  if (ClassOf(control) == L"ComboBox") {  // which tells its parent only of what a person types
    PostMessageW(window_, WM_COMMAND, MAKEWPARAM(controlId, CBN_EDITCHANGE), reinterpret_cast<LPARAM>(control));
  }
  settle_();
  return *this;
}

DialogDriver& DialogDriver::Press(int controlId) {
  if (!IsEnabled(controlId)) {
    FailWithPicture("the control to press is disabled: " + std::to_string(controlId));
  }
  PostMessageW(Control(controlId), BM_CLICK, 0, 0);
  settle_();
  return *this;
}

DialogDriver& DialogDriver::Choose(int controlId, std::u16string_view item) {
  const HWND control = Control(controlId);
  const ItemMessages messages = MessagesOf(control);
  const std::vector<std::u16string> items = Items(controlId);
  const auto found = std::ranges::find(items, item);
  if (found == items.end()) {
    FailWithPicture("no such item to choose: " + Shown(item));
  }
  Send(control, messages.select, static_cast<WPARAM>(found - items.begin()));
  PostMessageW(window_, WM_COMMAND, MAKEWPARAM(controlId, messages.selected), reinterpret_cast<LPARAM>(control));
  settle_();
  return *this;
}

DialogDriver& DialogDriver::ChooseRow(int controlId, int row) {
  LVITEMW item{};
  item.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
  item.state = item.stateMask;
  Send(Control(controlId), LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
  settle_();
  return *this;
}

void DialogDriver::Close() {
  PostMessageW(window_, WM_SYSCOMMAND, SC_CLOSE, 0);
  WaitUntilGone();
  settle_();
}

void DialogDriver::WaitUntilGone() const {
  WaitUntil("a dialog to go", [this] { return !IsOpen(); });
}

bool DialogDriver::IsOpen() const {
  return IsWindow(window_) != FALSE && IsWindowVisible(window_) != FALSE;
}

std::u16string DialogDriver::Caption() const {
  return TextOf(window_);
}

std::u16string DialogDriver::Text(int controlId) const {
  return TextOf(Control(controlId));
}

bool DialogDriver::IsEnabled(int controlId) const {
  return IsWindowEnabled(window_) != FALSE && IsWindowEnabled(Control(controlId)) != FALSE;
}

bool DialogDriver::IsChecked(int controlId) const {
  return Send(Control(controlId), BM_GETCHECK) == BST_CHECKED;
}

std::vector<std::u16string> DialogDriver::Items(int controlId) const {
  const HWND control = Control(controlId);
  const ItemMessages messages = MessagesOf(control);
  std::vector<std::u16string> items;
  const auto count = static_cast<WPARAM>(Send(control, messages.count));
  for (WPARAM index = 0; index < count; ++index) {
    std::wstring text(static_cast<std::size_t>(Send(control, messages.length, index)) + 1, L'\0');
    Send(control, messages.text, index, reinterpret_cast<LPARAM>(text.data()));
    text.pop_back();
    items.push_back(FromWide(text));
  }
  return items;
}

std::u16string DialogDriver::Cell(int controlId, int row, int column) const {
  constexpr std::size_t kLongestCell = 512;
  std::array<wchar_t, kLongestCell> text{};
  LVITEMW item{};
  item.iSubItem = column;
  item.pszText = text.data();
  item.cchTextMax = static_cast<int>(text.size());
  Send(Control(controlId), LVM_GETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
  return FromWide(text.data());
}

std::u16string DialogDriver::ToolTip(int controlId) const {
  ToolTipSearch search{Control(controlId), {}};
  EnumThreadWindows(GetWindowThreadProcessId(window_, nullptr), AskToolTips, reinterpret_cast<LPARAM>(&search));
  return search.text;
}

int DialogDriver::Focus() const {
  GUITHREADINFO info{};
  info.cbSize = sizeof(info);
  GetGUIThreadInfo(GetWindowThreadProcessId(window_, nullptr), &info);
  for (HWND control = info.hwndFocus; control != nullptr; control = GetParent(control)) {
    if (GetParent(control) == window_) {  // the edit box of a combo box stands for the combo box
      return GetDlgCtrlID(control);
    }
  }
  return 0;
}

}  // namespace scrivanta
