#include "note/FrmNoteText.h"

#include <algorithm>
#include <cwchar>
#include <utility>

#include "text/win/WideText.h"
#include "win/BoxMenu.h"
#include "win/Keys.h"

namespace scrivanta {

namespace {

constexpr WPARAM kUndoSteps = 100;
constexpr COLORREF kMark = RGB(255, 160, 64);
// Posted by the control to itself when other text may be seen.
constexpr UINT kMarkVisible = WM_APP + 1;

bool IsPasteKey(WPARAM key) {
  return (key == 'V' && IsKeyDown(VK_CONTROL) && !IsKeyDown(VK_MENU)) || (key == VK_INSERT && IsKeyDown(VK_SHIFT));
}

std::u16string WithLineBreaks(std::u16string_view text) {
  std::u16string result;
  result.reserve(text.size());
  for (const char16_t c : text) {
    result += c;
    if (c == u'\r') {
      result += u'\n';
    }
  }
  return result;
}

CHARFORMAT2W FormatOf(const FontDescription& font) {
  constexpr int kTwipsOfPoint = 20;
  CHARFORMAT2W format{};
  format.cbSize = sizeof(format);
  format.dwMask = CFM_FACE | CFM_SIZE | CFM_COLOR | CFM_BOLD | CFM_ITALIC | CFM_UNDERLINE | CFM_STRIKEOUT | CFM_CHARSET;
  format.dwEffects = (font.bold ? CFE_BOLD : 0U) | (font.italic ? CFE_ITALIC : 0U) |
                     (font.underline ? CFE_UNDERLINE : 0U) | (font.strikeThrough ? CFE_STRIKEOUT : 0U);
  format.yHeight = static_cast<LONG>(font.size * kTwipsOfPoint);
  format.crTextColor = font.colour;
  format.bCharSet = GB2312_CHARSET;
  const std::wstring name = ToWide(font.name).substr(0, LF_FACESIZE - 1);
  std::wmemcpy(format.szFaceName, name.c_str(), name.size() + 1);
  return format;
}

CHARFORMAT2W MarkFormat(bool marked) {
  CHARFORMAT2W format{};
  format.cbSize = sizeof(format);
  format.dwMask = CFM_BACKCOLOR;
  format.dwEffects = marked ? 0 : CFE_AUTOBACKCOLOR;
  format.crBackColor = kMark;
  return format;
}

}  // namespace

void FrmNoteText::Create(WindowHost& host, HWND parent, int controlId, std::function<bool(WPARAM)> onKey) {
  onKey_ = std::move(onKey);
  box_.Create(parent, controlId, WS_VISIBLE | WS_TABSTOP | WS_VSCROLL | ES_MULTILINE | ES_NOHIDESEL | ES_WANTRETURN);
  box_.Send(EM_SETUNDOLIMIT, kUndoSteps);
  box_.SetEventMask(ENM_CHANGE);
  keys_ = std::make_unique<Subclass>(host, box_.handle(), [this](UINT message, WPARAM wParam, LPARAM lParam) {
    return OnMessage(message, wParam, lParam);
  });
}

std::optional<LRESULT> FrmNoteText::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  constexpr WPARAM kCtrlEnter = L'\n';
  switch (message) {
    case WM_KEYDOWN:
      if (onKey_(wParam)) {
        return 0;
      }
      if (IsPasteKey(wParam)) {
        box_.Send(EM_PASTESPECIAL, CF_UNICODETEXT);
        return 0;
      }
      return std::nullopt;
    case WM_CHAR:
      return wParam == kCtrlEnter ? std::optional<LRESULT>(0) : std::nullopt;
    case WM_GETDLGCODE:
      return DLGC_WANTALLKEYS | DLGC_WANTARROWS;
    case WM_VSCROLL:
    case WM_MOUSEWHEEL:
    case WM_KEYUP:
    case WM_SIZE:
      PostMessageW(box_.handle(), kMarkVisible, 0, 0);
      return std::nullopt;
    case kMarkVisible:
      MarkVisible();
      return 0;
    default:
      return AnswerWithBoxMenu(box_.handle(), message, lParam);
  }
}

std::u16string FrmNoteText::Text() const {
  return WithLineBreaks(box_.Text());
}

std::u16string FrmNoteText::SelectedText() const {
  return WithLineBreaks(box_.Text(box_.Selection()));
}

void FrmNoteText::SetText(const std::u16string& text) {
  const QuietRichEdit quiet(box_);
  NoProgress progress;
  box_.LoadText(text, progress);
  box_.Send(EM_EMPTYUNDOBUFFER);
}

void FrmNoteText::Append(const std::u16string& text) {
  const auto end = static_cast<LONG>(box_.Length());
  box_.Select({end, end});
  box_.ReplaceSelection(text);
  box_.ScrollToCaret();
}

void FrmNoteText::ApplyLook(const NoteLook& look) {
  {
    const QuietRichEdit quiet(box_);
    const RichEditUndoPause pause(box_);
    box_.SetFormatOfAll(FormatOf(look.font));
    box_.Send(EM_SETBKGNDCOLOR, 0, static_cast<LPARAM>(look.paper));
  }
  InvalidateRect(box_.handle(), nullptr, TRUE);
}

void FrmNoteText::Select(const NotePlace& place) {
  box_.Select({static_cast<LONG>(place.start), static_cast<LONG>(place.start + place.length)});
  box_.ScrollToCaret();
}

void FrmNoteText::Mark(std::span<const NotePlace> places) {
  places_ = places;
  {
    const QuietRichEdit quiet(box_);
    const RichEditUndoPause pause(box_);
    box_.SetFormatOfAll(MarkFormat(false));
  }
  MarkVisible();
  InvalidateRect(box_.handle(), nullptr, TRUE);
}

CHARRANGE FrmNoteText::VisibleRange() const {
  RECT inner{};
  GetClientRect(box_.handle(), &inner);
  POINTL first{0, 0};
  POINTL last{inner.right, inner.bottom};
  return {static_cast<LONG>(box_.Send(EM_CHARFROMPOS, 0, reinterpret_cast<LPARAM>(&first))),
          static_cast<LONG>(box_.Send(EM_CHARFROMPOS, 0, reinterpret_cast<LPARAM>(&last)))};
}

// Marking thousands of places takes the control seconds, and nobody sees more than these.
void FrmNoteText::MarkVisible() {
  if (places_.empty()) {
    return;
  }
  const CHARRANGE visible = VisibleRange();
  const CHARRANGE selection = box_.Selection();
  const POINT scroll = box_.ScrollPosition();
  {
    const QuietRichEdit quiet(box_);
    const RichEditUndoPause pause(box_);
    const auto start = static_cast<std::size_t>(visible.cpMin);
    auto place = std::ranges::lower_bound(places_, start, {}, [](const NotePlace& p) { return p.start + p.length; });
    for (; place != places_.end() && place->start <= static_cast<std::size_t>(visible.cpMax); ++place) {
      box_.Select({static_cast<LONG>(place->start), static_cast<LONG>(place->start + place->length)});
      box_.SetSelectionFormat(MarkFormat(true));
    }
    box_.Select(selection);
    box_.SetScrollPosition(scroll);
  }
  InvalidateRect(box_.handle(), nullptr, FALSE);
}

}  // namespace scrivanta
