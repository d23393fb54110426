#include "shell/window/FrmMainLineNumbers.h"

#include <richedit.h>

#include <array>
#include <string>

#include "shell/window/FrmMainControls.h"
#include "text/DecimalText.h"
#include "text/win/PlatformError.h"
#include "text/win/WideText.h"
#include "win/Colours.h"
#include "win/Handles.h"
#include "win/RichEdit.h"

namespace scrivanta {

namespace {

constexpr int kFewestFigures = 3;

POINT PlaceOf(HWND box, LONG character) {
  POINTL place{};
  SendMessageW(box, EM_POSFROMCHAR, reinterpret_cast<WPARAM>(&place), character);
  return {place.x, place.y};
}

LONG FirstCharacter(HWND box) {
  POINTL corner{1, 1};
  return static_cast<LONG>(SendMessageW(box, EM_CHARFROMPOS, 0, reinterpret_cast<LPARAM>(&corner)));
}

OwnedFont FigureFont(HWND box) {
  LOGFONTW font{};
  font.lfHeight = -TextHeightIn(box);
  font.lfCharSet = GB2312_CHARSET;
  std::wstring(L"宋体").copy(font.lfFaceName, LF_FACESIZE - 1);
  return OwnedFont(CreateFontIndirectW(&font));
}

int FigureCount(std::size_t lines) {
  return std::max(kFewestFigures, static_cast<int>(DecimalText(lines).size()));
}

}  // namespace

void FrmMainLineNumbers::Create(HWND parent) {
  window_ = CreateWindowExW(0, L"STATIC", L"", WS_CHILD | SS_OWNERDRAW, 0, 0, 0, 0, parent,
                            reinterpret_cast<HMENU>(static_cast<INT_PTR>(LineNumbers1)), nullptr, nullptr);
  if (window_ == nullptr) {
    ThrowLastError("CreateWindowEx");
  }
}

void FrmMainLineNumbers::Show(bool shown) {
  isShown_ = shown;
  drawn_ = {};
  ShowWindow(window_, shown ? SW_SHOW : SW_HIDE);
}

int FrmMainLineNumbers::Width(HWND box, const LineBreakIndex& breaks) const {
  if (!isShown_) {
    return 0;
  }
  const WindowDeviceContext context(window_);
  const OwnedFont font = FigureFont(box);
  const HGDIOBJ before = SelectObject(context.get(), font.get());
  SIZE size{};
  GetTextExtentPoint32W(context.get(), L"0", 1, &size);
  SelectObject(context.get(), before);
  return size.cx * (FigureCount(breaks.lineCount()) + 1);
}

bool FrmMainLineNumbers::Follow(HWND box, const LineBreakIndex& breaks) {
  if (!isShown_) {
    return false;
  }
  const LONG first = FirstCharacter(box);
  const Place place{first, PlaceOf(box, first).y, breaks.lineCount(), TextHeightIn(box)};
  if (place == drawn_) {
    return false;
  }
  const bool isWider =
      FigureCount(place.lines) != FigureCount(drawn_.lines) || place.figureHeight != drawn_.figureHeight;
  drawn_ = place;
  InvalidateRect(window_, nullptr, FALSE);
  return isWider;
}

void FrmMainLineNumbers::Draw(const DRAWITEMSTRUCT& item, HWND box, const LineBreakIndex& breaks,
                              Colours& colours) const {
  FillRect(item.hDC, &item.rcItem, colours.BrushOf(COLOR_BTNFACE));
  const OwnedFont font = FigureFont(box);
  const HGDIOBJ before = SelectObject(item.hDC, font.get());
  SetBkMode(item.hDC, TRANSPARENT);
  SetTextColor(item.hDC, colours.Of(COLOR_BTNTEXT));
  SIZE figure{};
  GetTextExtentPoint32W(item.hDC, L"0", 1, &figure);
  POINT origin{};
  MapWindowPoints(box, window_, &origin, 1);
  for (std::size_t line = breaks.LineOf(ControlPos{static_cast<std::size_t>(FirstCharacter(box))});
       line < breaks.lineCount(); ++line) {
    const LONG y = PlaceOf(box, static_cast<LONG>(breaks.LineStart(line).value)).y + origin.y;
    if (y >= item.rcItem.bottom) {
      break;
    }
    RECT place = item.rcItem;
    place.top = y;
    place.right -= figure.cx / 2;
    DrawTextW(item.hDC, ToWide(DecimalText(line + 1)).c_str(), -1, &place, DT_RIGHT | DT_SINGLELINE | DT_NOCLIP);
  }
  SelectObject(item.hDC, before);
}

}  // namespace scrivanta
