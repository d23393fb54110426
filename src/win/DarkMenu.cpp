#include "win/DarkMenu.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "win/Colours.h"
#include "win/Handles.h"

namespace scrivanta {

namespace {

// The ground of the entry that is chosen.
constexpr int kSelected = COLOR_BTNSHADOW;

// Where an entry stands: what the system hands on with it. Handles of menus have 32 bits.
struct EntryPlace {
  HMENU menu;
  UINT position;
};

constexpr unsigned kPositionShift = 32;

ULONG_PTR Pack(const EntryPlace& place) {
  return (static_cast<ULONG_PTR>(place.position) << kPositionShift) |
         static_cast<std::uint32_t>(reinterpret_cast<ULONG_PTR>(place.menu));
}

EntryPlace Unpack(ULONG_PTR data) {
  return {reinterpret_cast<HMENU>(data & 0xFFFFFFFF), static_cast<UINT>(data >> kPositionShift)};
}

UINT CountOf(HMENU menu) {
  return static_cast<UINT>(std::max(GetMenuItemCount(menu), 0));
}

bool IsSeparator(const EntryPlace& place) {
  MENUITEMINFOW entry{};
  entry.cbSize = sizeof(entry);
  entry.fMask = MIIM_FTYPE;
  GetMenuItemInfoW(place.menu, place.position, TRUE, &entry);
  return (entry.fType & MFT_SEPARATOR) != 0;
}

// What stands before the tab, and behind it.
struct EntryText {
  std::wstring name;
  std::wstring key;
};

EntryText TextOf(const EntryPlace& place) {
  MENUITEMINFOW entry{};
  entry.cbSize = sizeof(entry);
  entry.fMask = MIIM_STRING;
  GetMenuItemInfoW(place.menu, place.position, TRUE, &entry);
  std::wstring text(entry.cch, L'\0');
  entry.dwTypeData = text.data();
  ++entry.cch;
  GetMenuItemInfoW(place.menu, place.position, TRUE, &entry);
  const std::size_t tab = text.find(L'\t');
  return {text.substr(0, tab), tab == std::wstring::npos ? std::wstring() : text.substr(tab + 1)};
}

// In pixels of the window's screen.
struct Measures {
  int margin;
  int gutter;  // for the tick
  int height;
};

Measures MeasuresOf(HWND window) {
  const UINT dpi = GetDpiForWindow(window);
  return {GetSystemMetricsForDpi(SM_CXMENUCHECK, dpi) / 2, GetSystemMetricsForDpi(SM_CXMENUCHECK, dpi) * 3 / 2,
          GetSystemMetricsForDpi(SM_CYMENU, dpi)};
}

OwnedFont MenuFont(HWND window) {
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof(metrics);
  SystemParametersInfoForDpi(SPI_GETNONCLIENTMETRICS, sizeof(metrics), &metrics, 0, GetDpiForWindow(window));
  return OwnedFont(CreateFontIndirectW(&metrics.lfMenuFont));
}

int WidthOf(HDC context, const std::wstring& text) {
  RECT bounds{};
  DrawTextW(context, text.c_str(), -1, &bounds, DT_SINGLELINE | DT_CALCRECT);
  return bounds.right;
}

void Measure(HWND window, MEASUREITEMSTRUCT& item) {
  const EntryPlace place = Unpack(item.itemData);
  const Measures measures = MeasuresOf(window);
  if (IsSeparator(place)) {
    item.itemHeight = static_cast<UINT>(measures.height / 2);
    return;
  }
  const EntryText text = TextOf(place);
  const WindowDeviceContext context(window);
  const OwnedFont font = MenuFont(window);
  const HGDIOBJ before = SelectObject(context.get(), font.get());
  int width = WidthOf(context.get(), text.name);
  if (place.menu != GetMenu(window)) {
    width += measures.gutter + (text.key.empty() ? 0 : 2 * measures.margin + WidthOf(context.get(), text.key));
  }
  SelectObject(context.get(), before);
  item.itemWidth = static_cast<UINT>(width + measures.margin);
  item.itemHeight = static_cast<UINT>(measures.height);
}

void DrawTick(HDC context, const RECT& bounds, int size, COLORREF colour) {
  const Owner<NullableTraits<HPEN, DeleteObject>> pen(CreatePen(PS_SOLID, std::max(size / 6, 1), colour));
  const HGDIOBJ before = SelectObject(context, pen.get());
  const LONG left = bounds.left + size / 2;
  const LONG middle = (bounds.top + bounds.bottom) / 2;
  const std::array<POINT, 3> corners = {POINT{left, middle}, POINT{left + size / 4, middle + size / 4},
                                        POINT{left + size * 3 / 4, middle - size / 3}};
  Polyline(context, corners.data(), static_cast<int>(corners.size()));
  SelectObject(context, before);
}

void Draw(HWND window, Colours& colours, const DRAWITEMSTRUCT& item) {
  const EntryPlace place = Unpack(item.itemData);
  const Measures measures = MeasuresOf(window);
  const bool isGrey = (item.itemState & (ODS_GRAYED | ODS_DISABLED)) != 0;
  const bool isSelected = (item.itemState & (ODS_SELECTED | ODS_HOTLIGHT)) != 0;
  FillRect(item.hDC, &item.rcItem, colours.BrushOf(isSelected ? kSelected : COLOR_MENU));
  if (IsSeparator(place)) {
    RECT line = item.rcItem;
    line.top = (line.top + line.bottom) / 2;
    line.bottom = line.top + 1;
    FillRect(item.hDC, &line, colours.BrushOf(COLOR_BTNSHADOW));
    return;
  }
  const EntryText text = TextOf(place);
  const COLORREF colour = colours.Of(!isGrey ? COLOR_MENUTEXT : isSelected ? COLOR_MENU : COLOR_GRAYTEXT);
  const OwnedFont font = MenuFont(window);
  const HGDIOBJ before = SelectObject(item.hDC, font.get());
  SetBkMode(item.hDC, TRANSPARENT);
  SetTextColor(item.hDC, colour);
  const UINT format = DT_SINGLELINE | DT_VCENTER | ((item.itemState & ODS_NOACCEL) != 0 ? DT_HIDEPREFIX : 0U);
  RECT bounds = item.rcItem;
  if (place.menu == GetMenu(window)) {
    DrawTextW(item.hDC, text.name.c_str(), -1, &bounds, format | DT_CENTER);
  } else {
    if ((item.itemState & ODS_CHECKED) != 0) {
      DrawTick(item.hDC, bounds, measures.gutter * 2 / 3, colour);
    }
    bounds.left += measures.gutter;
    bounds.right -= measures.margin;
    DrawTextW(item.hDC, text.name.c_str(), -1, &bounds, format);
    DrawTextW(item.hDC, text.key.c_str(), -1, &bounds, format | DT_RIGHT);
  }
  SelectObject(item.hDC, before);
}

wchar_t InCapitals(wchar_t letter) {
  return static_cast<wchar_t>(reinterpret_cast<ULONG_PTR>(CharUpperW(reinterpret_cast<wchar_t*>(ULONG_PTR{letter}))));
}

// The entry with an access key is run; where several have it the next of them is chosen.
std::optional<LRESULT> AnswerKey(HMENU menu, wchar_t key) {
  std::vector<UINT> found;
  std::optional<UINT> chosen;
  for (UINT position = 0; position < CountOf(menu); ++position) {
    const std::wstring name = TextOf({menu, position}).name;
    const std::size_t mark = name.find(L'&');
    if (mark + 1 < name.size() && mark != std::wstring::npos && InCapitals(name[mark + 1]) == InCapitals(key)) {
      found.push_back(position);
    }
    if ((GetMenuState(menu, position, MF_BYPOSITION) & MF_HILITE) != 0) {
      chosen = position;
    }
  }
  if (found.empty()) {
    return std::nullopt;
  }
  const auto next = chosen ? std::ranges::upper_bound(found, *chosen) : found.begin();
  return MAKELRESULT(next == found.end() ? found.front() : *next, found.size() == 1 ? MNC_EXECUTE : MNC_SELECT);
}

}  // namespace

bool DressMenu(HMENU menu, Colours& colours) {
  MENUINFO look{};
  look.cbSize = sizeof(look);
  look.fMask = MIM_BACKGROUND;
  GetMenuInfo(menu, &look);
  if (!colours.isDark() && look.hbrBack == nullptr) {
    return false;  // it never was dark
  }
  look.hbrBack = colours.isDark() ? colours.BrushOf(COLOR_MENU) : nullptr;
  SetMenuInfo(menu, &look);
  for (UINT position = 0; position < CountOf(menu); ++position) {
    MENUITEMINFOW entry{};
    entry.cbSize = sizeof(entry);
    entry.fMask = MIIM_FTYPE;
    GetMenuItemInfoW(menu, position, TRUE, &entry);
    entry.fMask = MIIM_FTYPE | MIIM_DATA;
    entry.fType = colours.isDark() ? entry.fType | MFT_OWNERDRAW : entry.fType & ~UINT{MFT_OWNERDRAW};
    entry.dwItemData = Pack({menu, position});
    SetMenuItemInfoW(menu, position, TRUE, &entry);
  }
  return true;
}

void CompleteMenuBar(HWND window, Colours& colours) {
  const HMENU bar = GetMenu(window);
  MENUBARINFO whole{};
  whole.cbSize = sizeof(whole);
  MENUBARINFO last = whole;
  if (bar == nullptr || GetMenuBarInfo(window, OBJID_MENU, 0, &whole) == FALSE ||
      GetMenuBarInfo(window, OBJID_MENU, static_cast<LONG>(CountOf(bar)), &last) == FALSE) {
    return;
  }
  RECT frame{};
  GetWindowRect(window, &frame);
  RECT rest{last.rcBar.right, last.rcBar.top, whole.rcBar.right, whole.rcBar.bottom};
  RECT line{whole.rcBar.left, whole.rcBar.bottom, whole.rcBar.right, whole.rcBar.bottom + 1};
  OffsetRect(&rest, -frame.left, -frame.top);
  OffsetRect(&line, -frame.left, -frame.top);
  const HDC context = GetWindowDC(window);
  FillRect(context, &rest, colours.BrushOf(COLOR_MENU));
  FillRect(context, &line, colours.BrushOf(COLOR_MENU));
  ReleaseDC(window, context);
}

std::optional<LRESULT> AnswerForMenu(HWND window, Colours& colours, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_MEASUREITEM: {
      auto& item = *reinterpret_cast<MEASUREITEMSTRUCT*>(lParam);
      if (item.CtlType != ODT_MENU) {
        return std::nullopt;
      }
      Measure(window, item);
      return TRUE;
    }
    case WM_DRAWITEM: {
      const auto& item = *reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
      if (item.CtlType != ODT_MENU) {
        return std::nullopt;
      }
      Draw(window, colours, item);
      return TRUE;
    }
    case WM_MENUCHAR:
      return AnswerKey(reinterpret_cast<HMENU>(lParam), static_cast<wchar_t>(LOWORD(wParam)));
    default:
      return std::nullopt;
  }
}

}  // namespace scrivanta
