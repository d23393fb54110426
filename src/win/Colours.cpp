#include "win/Colours.h"

#include <commctrl.h>

#include <algorithm>
#include <array>
#include <optional>
#include <string>

#include "text/DarkColours.h"
#include "text/win/WideText.h"
#include "win/DarkMenu.h"
#include "win/DarkSystem.h"
#include "win/WindowText.h"

namespace scrivanta {

namespace {

constexpr UINT_PTR kSubclassId = 1;
// Of a pixel that nothing has been drawn on: no drawing sets the highest byte.
constexpr std::uint32_t kUntouched = 0xFF000000;

constexpr wchar_t kRichEdit[] = L"RICHEDIT50W";

enum class Kind {
  kPicture,  // draws itself when it is told to
  kFrame,    // only a frame around others, on the ground of the window
  kList,     // has colours of its own, as the next
  kTree,
  kOther,  // asks its parent for colours
};

bool IsClass(HWND control, const wchar_t* name) {
  constexpr int kLongest = 256;
  std::array<wchar_t, kLongest> own{};
  GetClassNameW(control, own.data(), kLongest);
  return CompareStringOrdinal(own.data(), -1, name, -1, TRUE) == CSTR_EQUAL;
}

Kind KindOf(HWND control) {
  constexpr std::array kPictures = {kRichEdit, STATUSCLASSNAMEW, PROGRESS_CLASSW, WC_HEADERW};
  if (IsClass(control, WC_BUTTONW)) {
    return (GetWindowLongPtrW(control, GWL_STYLE) & BS_TYPEMASK) == BS_GROUPBOX ? Kind::kFrame : Kind::kPicture;
  }
  if (IsClass(control, WC_LISTVIEWW)) {
    return Kind::kList;
  }
  if (IsClass(control, WC_TREEVIEWW)) {
    return Kind::kTree;
  }
  const bool isPicture = std::ranges::any_of(kPictures, [&](const wchar_t* name) { return IsClass(control, name); });
  return isPicture ? Kind::kPicture : Kind::kOther;
}

// A button draws itself, too, when one of these has changed it.
bool ChangesButton(UINT message) {
  constexpr std::array<UINT, 9> kMessages = {WM_SETFOCUS, WM_KILLFOCUS, WM_ENABLE,   WM_SETTEXT,      BM_SETSTATE,
                                             BM_SETCHECK, WM_LBUTTONUP, BM_SETSTYLE, WM_UPDATEUISTATE};
  return std::ranges::find(kMessages, message) != kMessages.end();
}

}  // namespace

COLORREF Colours::Of(int systemColour) const {
  const COLORREF light = GetSysColor(systemColour);
  if (!isDark_) {
    return light;
  }
  const Colour dark = DarkColour({GetRValue(light), GetGValue(light), GetBValue(light)});
  return RGB(dark.red, dark.green, dark.blue);
}

HBRUSH Colours::BrushOf(int systemColour) {
  if (!isDark_) {
    return GetSysColorBrush(systemColour);
  }
  OwnedBrush& brush = brushes_[systemColour];
  if (!brush) {
    brush.Reset(CreateSolidBrush(Of(systemColour)));
  }
  return brush.get();
}

void Colours::SetDark(bool isDark) {
  if (isDark == isDark_) {
    return;
  }
  isDark_ = isDark;
  for (const HWND window : windows_) {
    Recolour(window);
    RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
  }
}

void Colours::Dress(HWND window) {
  windows_.push_back(window);
  SetWindowSubclass(window, &WindowProcedure, kSubclassId, reinterpret_cast<DWORD_PTR>(this));
  EnumChildWindows(
      window,
      [](HWND control, LPARAM self) -> BOOL {
        reinterpret_cast<Colours*>(self)->DressControl(control);
        return TRUE;
      },
      reinterpret_cast<LPARAM>(this));
  if (isDark_) {
    Recolour(window);
  }
}

void Colours::DressControl(HWND control) {
  const Kind kind = KindOf(control);
  if (kind == Kind::kPicture || kind == Kind::kFrame) {
    SetWindowSubclass(control, kind == Kind::kFrame ? &FrameProcedure : &PictureProcedure, kSubclassId,
                      reinterpret_cast<DWORD_PTR>(this));
  }
}

// Title and scroll bars are the system's, and so are the colours that a list is told.
void Colours::Recolour(HWND window) {
  ShowTitleDark(window, isDark_);
  DressMenuBar(window);
  EnumChildWindows(
      window,
      [](HWND control, LPARAM self) -> BOOL {
        reinterpret_cast<const Colours*>(self)->RecolourControl(control);
        return TRUE;
      },
      reinterpret_cast<LPARAM>(this));
}

void Colours::DressMenuBar(HWND window) {
  if (const HMENU bar = GetMenu(window)) {
    DressMenu(bar, *this);
    DrawMenuBar(window);
  }
}

void Colours::RecolourControl(HWND control) const {
  const Kind kind = KindOf(control);
  const auto tell = [&](UINT message, int systemColour) {
    SendMessageW(control, message, 0, static_cast<LPARAM>(Of(systemColour)));
  };
  if (kind == Kind::kList) {
    tell(LVM_SETBKCOLOR, COLOR_WINDOW);
    tell(LVM_SETTEXTBKCOLOR, COLOR_WINDOW);
    tell(LVM_SETTEXTCOLOR, COLOR_WINDOWTEXT);
  } else if (kind == Kind::kTree) {
    tell(TVM_SETBKCOLOR, COLOR_WINDOW);
    tell(TVM_SETTEXTCOLOR, COLOR_WINDOWTEXT);
    tell(TVM_SETLINECOLOR, COLOR_WINDOWTEXT);
  }
  // What is drawn by the system's theme goes dark by that, but not what is made dark here.
  if (IsClass(control, WC_EDITW) || IsClass(control, WC_COMBOBOXW)) {
    UseDarkTheme(control, DarkTheme::kBoxes, isDark_);
  } else if ((kind != Kind::kPicture && kind != Kind::kFrame) || IsClass(control, kRichEdit)) {
    UseDarkTheme(control, DarkTheme::kScrollBars, isDark_);
  }
}

LRESULT CALLBACK Colours::WindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                          DWORD_PTR selfPointer) {
  auto* const self = reinterpret_cast<Colours*>(selfPointer);
  switch (message) {
    case WM_NCDESTROY:
      std::erase(self->windows_, window);
      RemoveWindowSubclass(window, &WindowProcedure, id);
      break;
    case WM_SYSCOLORCHANGE:
      self->brushes_.clear();
      if (self->isDark_) {
        self->Recolour(window);
      }
      break;
    case WM_INITMENUPOPUP: {
      const LRESULT answer = DefSubclassProc(window, message, wParam, lParam);  // it may get entries now
      DressMenu(reinterpret_cast<HMENU>(wParam), *self);
      return answer;
    }
    case WM_PARENTNOTIFY:
      if (LOWORD(wParam) == WM_CREATE) {
        self->DressControl(reinterpret_cast<HWND>(lParam));
        if (self->isDark_) {
          self->RecolourControl(reinterpret_cast<HWND>(lParam));
        }
      }
      break;
    default:
      if (self->isDark_ && !self->isPrinting_) {
        return self->AnswerDark(window, message, wParam, lParam);
      }
  }
  return DefSubclassProc(window, message, wParam, lParam);
}

LRESULT Colours::AnswerDark(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (const std::optional<LRESULT> answer = AnswerForMenu(window, *this, message, wParam, lParam)) {
    return *answer;
  }
  const auto context = reinterpret_cast<HDC>(wParam);
  switch (message) {
    case WM_ERASEBKGND: {
      RECT inner{};
      GetClientRect(window, &inner);
      FillRect(context, &inner, BrushOf(COLOR_BTNFACE));
      return TRUE;
    }
    case WM_NCPAINT:
    case WM_NCACTIVATE: {
      const LRESULT answer = DefSubclassProc(window, message, wParam, lParam);
      CompleteMenuBar(window, *this);
      return answer;
    }
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORLISTBOX:
      return Fill(context, COLOR_WINDOW, COLOR_WINDOWTEXT);
    case WM_CTLCOLORSTATIC:
      // What draws itself is made dark afterwards.
      return IsClass(reinterpret_cast<HWND>(lParam), WC_BUTTONW) ? DefSubclassProc(window, message, wParam, lParam)
                                                                 : Fill(context, COLOR_BTNFACE, COLOR_BTNTEXT);
    default:
      return DefSubclassProc(window, message, wParam, lParam);
  }
}

LRESULT Colours::Fill(HDC context, int ground, int text) {
  SetTextColor(context, Of(text));
  SetBkColor(context, Of(ground));
  return reinterpret_cast<LRESULT>(BrushOf(ground));
}

LRESULT CALLBACK Colours::PictureProcedure(HWND control, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                           DWORD_PTR selfPointer) {
  auto* const self = reinterpret_cast<Colours*>(selfPointer);
  if (message == WM_NCDESTROY) {
    RemoveWindowSubclass(control, &PictureProcedure, id);
  } else if (self->isDark_) {
    if (message == WM_PAINT && self->Paint(control)) {
      return 0;
    }
    if (message == WM_ERASEBKGND && !self->isPrinting_) {
      return TRUE;
    }
    if (ChangesButton(message) && IsClass(control, WC_BUTTONW)) {
      const LRESULT answer = DefSubclassProc(control, message, wParam, lParam);
      InvalidateRect(control, nullptr, FALSE);
      return answer;
    }
  }
  return DefSubclassProc(control, message, wParam, lParam);
}

bool Colours::Paint(HWND control) {
  const OwnedRegion region(CreateRectRgn(0, 0, 0, 0));
  RECT part{};
  RECT inner{};
  GetClientRect(control, &inner);
  if (GetUpdateRgn(control, region.get(), FALSE) <= NULLREGION || GetRgnBox(region.get(), &part) <= NULLREGION ||
      IntersectRect(&part, &part, &inner) == FALSE || !canvas_.Fit({inner.right, inner.bottom})) {
    return false;
  }
  for (LONG row = part.top; row < part.bottom; ++row) {
    std::ranges::fill(canvas_.Row(row, part.left, part.right), kUntouched | GetSysColor(COLOR_BTNFACE));
  }
  SelectClipRgn(canvas_.context(), region.get());
  isPrinting_ = true;
  DefSubclassProc(control, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(canvas_.context()), PRF_CLIENT | PRF_ERASEBKGND);
  isPrinting_ = false;
  SelectClipRgn(canvas_.context(), nullptr);
  if (!IsUntouched(part)) {
    Darken(part);
    PAINTSTRUCT painting{};
    const HDC screen = BeginPaint(control, &painting);
    BitBlt(screen, part.left, part.top, part.right - part.left, part.bottom - part.top, canvas_.context(), part.left,
           part.top, SRCCOPY);
    EndPaint(control, &painting);
    return true;
  }
  // It draws nowhere but on the screen: that is made dark where it stands.
  isPrinting_ = true;
  DefSubclassProc(control, WM_PAINT, 0, 0);
  isPrinting_ = false;
  const bool hadCaret = HideCaret(control) != FALSE;
  {
    const WindowDeviceContext screen(control);
    SelectClipRgn(screen.get(), region.get());
    BitBlt(canvas_.context(), part.left, part.top, part.right - part.left, part.bottom - part.top, screen.get(),
           part.left, part.top, SRCCOPY);
    Darken(part);
    BitBlt(screen.get(), part.left, part.top, part.right - part.left, part.bottom - part.top, canvas_.context(),
           part.left, part.top, SRCCOPY);
  }
  if (hadCaret) {
    ShowCaret(control);
  }
  return true;
}

bool Colours::IsUntouched(const RECT& part) {
  return std::ranges::all_of(canvas_.Row(part.top, part.left, part.right),
                             [](std::uint32_t pixel) { return (pixel & kUntouched) == kUntouched; });
}

void Colours::Darken(const RECT& part) {
  for (LONG row = part.top; row < part.bottom; ++row) {
    DarkenPixels(canvas_.Row(row, part.left, part.right));
  }
}

LRESULT CALLBACK Colours::FrameProcedure(HWND control, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                         DWORD_PTR selfPointer) {
  auto* const self = reinterpret_cast<Colours*>(selfPointer);
  if (message == WM_NCDESTROY) {
    RemoveWindowSubclass(control, &FrameProcedure, id);
  } else if (message == WM_PAINT && self->isDark_) {
    self->PaintFrame(control);
    return 0;
  }
  return DefSubclassProc(control, message, wParam, lParam);
}

void Colours::PaintFrame(HWND control) {
  PAINTSTRUCT painting{};
  const HDC context = BeginPaint(control, &painting);
  RECT frame{};
  GetClientRect(control, &frame);
  const std::wstring text = ToWide(WindowText(control));
  const HGDIOBJ before = SelectObject(context, reinterpret_cast<HGDIOBJ>(SendMessageW(control, WM_GETFONT, 0, 0)));
  SIZE size{};
  GetTextExtentPoint32W(context, text.c_str(), static_cast<int>(text.size()), &size);
  RECT title{size.cy / 2, 0, frame.right - size.cy / 2, size.cy};
  frame.top += size.cy / 2;
  FrameRect(context, &frame, BrushOf(COLOR_BTNSHADOW));
  Fill(context, COLOR_BTNFACE, COLOR_BTNTEXT);
  DrawTextW(context, text.c_str(), -1, &title, DT_SINGLELINE);
  SelectObject(context, before);
  EndPaint(control, &painting);
}

}  // namespace scrivanta
