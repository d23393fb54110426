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
// Of a window, by which its colours are found.
constexpr wchar_t kProperty[] = L"ScrivantaColours";
// The highest byte of a pixel that nothing has been drawn on: no drawing leaves such a one.
constexpr std::uint32_t kUntouched = 0x5A000000;
constexpr std::uint32_t kHighest = 0xFF000000;

constexpr wchar_t kRichEdit[] = L"RICHEDIT50W";

enum class Kind {
  kPicture,  // draws itself when it is told to
  kFrame,    // only a frame around others, on the ground of the window
  kOther,    // asks its parent for colours
};

bool IsClass(HWND control, const wchar_t* name) {
  constexpr int kLongest = 256;
  std::array<wchar_t, kLongest> own{};
  GetClassNameW(control, own.data(), kLongest);
  return CompareStringOrdinal(own.data(), -1, name, -1, TRUE) == CSTR_EQUAL;
}

Kind KindOf(HWND control) {
  constexpr std::array kPictures = {kRichEdit,  WC_BUTTONW,   WC_COMBOBOXW,    WC_LISTVIEWW,
                                    WC_HEADERW, WC_TREEVIEWW, PROGRESS_CLASSW, STATUSCLASSNAMEW};
  if (IsClass(control, WC_BUTTONW) && (GetWindowLongPtrW(control, GWL_STYLE) & BS_TYPEMASK) == BS_GROUPBOX) {
    return Kind::kFrame;
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

Colours* Colours::OfWindow(HWND window) {
  return static_cast<Colours*>(GetPropW(window, kProperty));
}

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
  brushes_.clear();
  for (const HWND window : windows_) {
    Recolour(window);
    RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
  }
}

// As long as all is light the window is left alone: to hear its messages would cost time.
void Colours::Dress(HWND window) {
  windows_.push_back(window);
  if (isDark_) {
    Recolour(window);
  }
}

void Colours::Forget(HWND window) noexcept {
  std::erase(windows_, window);
}

// Title and scroll bars are the system's.
void Colours::Recolour(HWND window) {
  if (isDark_) {
    SetPropW(window, kProperty, this);
    SetWindowSubclass(window, &WindowProcedure, kSubclassId, reinterpret_cast<DWORD_PTR>(this));
  }
  ShowTitleDark(window, isDark_);
  DressMenuBar(window);
  EnumChildWindows(
      window,
      [](HWND control, LPARAM self) -> BOOL {
        reinterpret_cast<Colours*>(self)->RecolourControl(control);
        return TRUE;
      },
      reinterpret_cast<LPARAM>(this));
}

void Colours::DressMenuBar(HWND window) {
  const HMENU bar = GetMenu(window);
  if (bar != nullptr && DressMenu(bar, *this)) {
    DrawMenuBar(window);
  }
}

// Not those of a list or a tree: the same theme has the colours of their entries.
void Colours::RecolourControl(HWND control) {
  const Kind kind = KindOf(control);
  if (isDark_) {
    SetWindowSubclass(control, &ControlProcedure, static_cast<UINT_PTR>(kind), reinterpret_cast<DWORD_PTR>(this));
  }
  if (kind == Kind::kOther || IsClass(control, kRichEdit)) {
    UseDarkScrollBars(control, isDark_);
  }
}

LRESULT CALLBACK Colours::WindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                          DWORD_PTR selfPointer) {
  auto* const self = reinterpret_cast<Colours*>(selfPointer);
  switch (message) {
    case WM_NCDESTROY:
      self->Forget(window);
      RemovePropW(window, kProperty);
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
      if (LOWORD(wParam) == WM_CREATE && self->isDark_) {
        self->RecolourControl(reinterpret_cast<HWND>(lParam));
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

LRESULT CALLBACK Colours::ControlProcedure(HWND control, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                           DWORD_PTR selfPointer) {
  auto* const self = reinterpret_cast<Colours*>(selfPointer);
  if (message == WM_NCDESTROY) {
    RemoveWindowSubclass(control, &ControlProcedure, id);
  } else if (self->isDark_) {
    return self->AnswerDarkControl(control, message, wParam, lParam, id);
  }
  return DefSubclassProc(control, message, wParam, lParam);
}

LRESULT Colours::AnswerDarkControl(HWND control, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id) {
  const auto kind = static_cast<Kind>(id);
  if (message == WM_PAINT && kind == Kind::kFrame) {
    PaintFrame(control);
    return 0;
  }
  if (message == WM_PAINT && kind == Kind::kPicture && Paint(control)) {
    return 0;
  }
  if (message == WM_ERASEBKGND && kind == Kind::kPicture && !isPrinting_) {
    return TRUE;
  }
  const LRESULT answer = DefSubclassProc(control, message, wParam, lParam);
  if (message == WM_NCPAINT) {
    PaintEdge(control);
  } else if (ChangesButton(message) && IsClass(control, WC_BUTTONW)) {
    InvalidateRect(control, nullptr, FALSE);
  }
  return answer;
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
  PaintOver(control, region.get(), part);
  return true;
}

// For a control that draws nowhere but on the screen: that is made dark where it stands.
void Colours::PaintOver(HWND control, HRGN region, const RECT& part) {
  const SIZE size{part.right - part.left, part.bottom - part.top};
  const auto onScreen = [&](auto draw) {
    const bool hadCaret = HideCaret(control) != FALSE;
    {
      const WindowDeviceContext screen(control);
      SelectClipRgn(screen.get(), region);
      draw(screen.get());
    }
    if (hadCaret) {
      ShowCaret(control);
    }
  };
  WaitForFrame();
  // What it leaves out must not be made dark twice.
  onScreen([&](HDC screen) { FillRect(screen, &part, GetSysColorBrush(COLOR_BTNFACE)); });
  isPrinting_ = true;
  DefSubclassProc(control, WM_PAINT, 0, 0);
  isPrinting_ = false;
  onScreen([&](HDC screen) {
    BitBlt(canvas_.context(), part.left, part.top, size.cx, size.cy, screen, part.left, part.top, SRCCOPY);
    Darken(part);
    BitBlt(screen, part.left, part.top, size.cx, size.cy, canvas_.context(), part.left, part.top, SRCCOPY);
  });
}

bool Colours::IsUntouched(const RECT& part) {
  return std::ranges::all_of(canvas_.Row(part.top, part.left, part.right),
                             [](std::uint32_t pixel) { return (pixel & kHighest) == kUntouched; });
}

void Colours::Darken(const RECT& part) {
  for (LONG row = part.top; row < part.bottom; ++row) {
    DarkenPixels(canvas_.Row(row, part.left, part.right));
  }
}

void Colours::PaintEdge(HWND control) {
  const bool isSunken = (GetWindowLongPtrW(control, GWL_EXSTYLE) & WS_EX_CLIENTEDGE) != 0;
  if (!isSunken && (GetWindowLongPtrW(control, GWL_STYLE) & WS_BORDER) == 0) {
    return;
  }
  RECT edge{};
  GetWindowRect(control, &edge);
  OffsetRect(&edge, -edge.left, -edge.top);
  const HDC context = GetWindowDC(control);
  FrameRect(context, &edge, BrushOf(COLOR_BTNSHADOW));
  if (isSunken) {
    InflateRect(&edge, -1, -1);
    FrameRect(context, &edge, BrushOf(COLOR_WINDOW));
  }
  ReleaseDC(control, context);
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
