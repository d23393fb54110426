#include "shell/services/ScrivantaForm.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "text/Twips.h"
#include "text/win/WideText.h"
#include "win/Monitors.h"
#include "win/WindowText.h"

namespace scrivanta {

namespace {

// The form store's name for the type of a control; empty for one that it does not keep.
std::u16string_view TypeOf(HWND control) {
  wchar_t buffer[64];
  const std::wstring_view className(buffer,
                                    static_cast<std::size_t>(GetClassNameW(control, buffer, std::size(buffer))));
  if (className == L"Button") {
    switch (GetWindowLongW(control, GWL_STYLE) & BS_TYPEMASK) {
      case BS_CHECKBOX:
      case BS_AUTOCHECKBOX:
        return u"CheckBox";
      case BS_RADIOBUTTON:
      case BS_AUTORADIOBUTTON:
        return u"OptionButton";
      default:
        return {};
    }
  }
  return className == L"Edit"       ? u"TextBox"
         : className == L"ComboBox" ? u"ComboBox"
         : className == L"ListBox"  ? u"ListBox"
         : className == L"Static"   ? u"Label"
         : className.starts_with(L"RICHEDIT") || className.starts_with(L"RichEdit")
             ? std::u16string_view(u"RichTextBox")
             : std::u16string_view();
}

void SetText(HWND control, std::u16string_view text) {
  SetWindowTextW(control, ToWide(text).c_str());
}

// The item of a list box or a combo box; empty for the number -1, no item.
std::u16string ItemOf(HWND list, UINT askLength, UINT askText, LRESULT number) {
  const LRESULT length = number < 0 ? -1 : SendMessageW(list, askLength, static_cast<WPARAM>(number), 0);
  if (length < 0) {
    return {};
  }
  std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
  SendMessageW(list, askText, static_cast<WPARAM>(number), reinterpret_cast<LPARAM>(text.data()));
  text.resize(static_cast<std::size_t>(length));
  return FromWide(text);
}

std::vector<std::u16string> ItemsOf(HWND combo) {
  std::vector<std::u16string> items;
  const LRESULT count = SendMessageW(combo, CB_GETCOUNT, 0, 0);
  for (LRESULT i = 0; i < count; ++i) {
    items.push_back(ItemOf(combo, CB_GETLBTEXTLEN, CB_GETLBTEXT, i));
  }
  return items;
}

void SetCombo(HWND combo, const FormControl& kept) {
  SendMessageW(combo, WM_SETREDRAW, FALSE, 0);
  SendMessageW(combo, CB_RESETCONTENT, 0, 0);
  for (const std::u16string& item : kept.items) {
    SendMessageW(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(ToWide(item).c_str()));
  }
  const bool hasEditBox = (GetWindowLongW(combo, GWL_STYLE) & CBS_DROPDOWNLIST) != CBS_DROPDOWNLIST;
  if (hasEditBox) {
    SetText(combo, kept.text);
  } else {
    SendMessageW(combo, CB_SETCURSEL,
                 static_cast<WPARAM>(SendMessageW(combo, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                                  reinterpret_cast<LPARAM>(ToWide(kept.text).c_str()))),
                 0);
  }
  SendMessageW(combo, WM_SETREDRAW, TRUE, 0);
  InvalidateRect(combo, nullptr, TRUE);
}

void SelectInList(HWND list, const std::u16string& item) {
  SendMessageW(list, LB_SETCURSEL,
               static_cast<WPARAM>(SendMessageW(list, LB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                                reinterpret_cast<LPARAM>(ToWide(item).c_str()))),
               0);
}

FormControl Read(HWND window, const NamedControl& named) {
  FormControl control{TypeOf(window), std::u16string(named.name), named.index, {}, false, {}};
  if (control.typeName == u"CheckBox" || control.typeName == u"OptionButton") {
    control.checked = SendMessageW(window, BM_GETCHECK, 0, 0) == BST_CHECKED;
  } else if (control.typeName == u"ListBox") {
    control.text = ItemOf(window, LB_GETTEXTLEN, LB_GETTEXT, SendMessageW(window, LB_GETCURSEL, 0, 0));
  } else if (!control.typeName.empty()) {
    control.text = WindowText(window);
  }
  if (control.typeName == u"ComboBox") {
    control.items = ItemsOf(window);
  }
  return control;
}

WINDOWPLACEMENT PlacementOf(HWND window) {
  WINDOWPLACEMENT placement{};
  placement.length = sizeof(placement);
  GetWindowPlacement(window, &placement);
  return placement;
}

}  // namespace

std::vector<FormControl> ScrivantaForm::Controls() const {
  std::vector<FormControl> controls;
  for (const NamedControl& named : controls_) {
    controls.push_back(Read(GetDlgItem(dialog_, named.id), named));
  }
  return controls;
}

void ScrivantaForm::SetControl(const FormControl& control) {
  const auto named = std::find_if(controls_.begin(), controls_.end(), [&control](const NamedControl& one) {
    return one.name == control.name && one.index == control.index;
  });
  if (named == controls_.end()) {
    return;
  }
  const HWND window = GetDlgItem(dialog_, named->id);
  const std::u16string_view type = TypeOf(window);
  if (type == u"CheckBox" || type == u"OptionButton") {
    SendMessageW(window, BM_SETCHECK, control.checked ? BST_CHECKED : BST_UNCHECKED, 0);
  } else if (type == u"ComboBox") {
    SetCombo(window, control);
  } else if (type == u"ListBox") {
    SelectInList(window, control.text);
  } else if (!type.empty()) {
    SetText(window, control.text);
  }
}

FormPlacement ScrivantaForm::Placement() const {
  const WINDOWPLACEMENT placement = PlacementOf(dialog_);
  const RECT& bounds = placement.rcNormalPosition;
  const auto dotsPerInch = static_cast<int>(GetDpiForWindow(dialog_));
  return {.left = PixelsToTwips(bounds.left, dotsPerInch),
          .top = PixelsToTwips(bounds.top, dotsPerInch),
          .width = PixelsToTwips(bounds.right - bounds.left, dotsPerInch),
          .height = PixelsToTwips(bounds.bottom - bounds.top, dotsPerInch),
          .maximized = IsZoomed(dialog_) != FALSE};
}

void ScrivantaForm::SetPlacement(const FormPlacement& placement) {
  WINDOWPLACEMENT place = PlacementOf(dialog_);
  const auto dotsPerInch = static_cast<int>(GetDpiForWindow(dialog_));
  const LONG style = GetWindowLongW(dialog_, GWL_STYLE);
  const bool hasOwnSize = (style & WS_THICKFRAME) != 0 && placement.width > 0 && placement.height > 0;
  const RECT& now = place.rcNormalPosition;
  const LONG left = TwipsToPixels(placement.left, dotsPerInch);
  const LONG top = TwipsToPixels(placement.top, dotsPerInch);
  const LONG width = hasOwnSize ? TwipsToPixels(placement.width, dotsPerInch) : now.right - now.left;
  const LONG height = hasOwnSize ? TwipsToPixels(placement.height, dotsPerInch) : now.bottom - now.top;
  place.rcNormalPosition = KeepOnScreen({left, top, left + width, top + height});
  const bool maximizes = placement.maximized && (style & WS_MAXIMIZEBOX) != 0;
  // A dialog that is not shown yet is not shown by this.
  place.showCmd = IsWindowVisible(dialog_) == FALSE ? SW_HIDE : maximizes ? SW_SHOWMAXIMIZED : SW_SHOWNOACTIVATE;
  SetWindowPlacement(dialog_, &place);
}

}  // namespace scrivanta
