#include "win/RichEdit.h"

#include <algorithm>
#include <cstring>

#include "win/PlatformError.h"
#include "win/WideText.h"

namespace scrivanta {

namespace {

constexpr wchar_t kControlClass[] = L"RICHEDIT50W";
constexpr LPARAM kNoLimit = 0x7ffffffe;
constexpr UINT kUtf16 = 1200;

// Hands a text to the control piece by piece.
struct Feed {
  const char* data;
  std::size_t size;  // in bytes
  bool isText;       // UTF-16: a piece never ends between CR and LF or inside a surrogate pair, which would be damaged

  static DWORD CALLBACK Next(DWORD_PTR cookie, BYTE* buffer, LONG room, LONG* written) {
    auto& feed = *reinterpret_cast<Feed*>(cookie);
    const std::size_t count = feed.PieceWithin(static_cast<std::size_t>(room));
    std::memcpy(buffer, feed.data, count);
    feed.data += count;
    feed.size -= count;
    *written = static_cast<LONG>(count);
    return 0;
  }

  std::size_t PieceWithin(std::size_t room) const {
    if (!isText || size <= room) {
      return std::min(size, room);
    }
    std::size_t count = room - room % sizeof(char16_t);
    const char16_t last = UnitBefore(count);
    if (count > sizeof(char16_t) && (last == u'\r' || (last >= 0xD800 && last < 0xDC00))) {
      count -= sizeof(char16_t);
    }
    return count;
  }

  char16_t UnitBefore(std::size_t offset) const {
    char16_t unit = 0;
    std::memcpy(&unit, data + offset - sizeof(unit), sizeof(unit));
    return unit;
  }
};

DWORD CALLBACK Collect(DWORD_PTR cookie, BYTE* buffer, LONG count, LONG* read) {
  reinterpret_cast<std::string*>(cookie)->append(reinterpret_cast<const char*>(buffer),
                                                 static_cast<std::size_t>(count));
  *read = count;
  return 0;
}

DWORD StreamIn(const RichEdit& box, WPARAM format, Feed feed) {
  EDITSTREAM stream{};
  stream.dwCookie = reinterpret_cast<DWORD_PTR>(&feed);
  stream.pfnCallback = &Feed::Next;
  box.Send(EM_STREAMIN, format, reinterpret_cast<LPARAM>(&stream));
  return stream.dwError;
}

std::string StreamOut(const RichEdit& box, WPARAM format) {
  std::string bytes;
  EDITSTREAM stream{};
  stream.dwCookie = reinterpret_cast<DWORD_PTR>(&bytes);
  stream.pfnCallback = &Collect;
  box.Send(EM_STREAMOUT, format, reinterpret_cast<LPARAM>(&stream));
  return bytes;
}

}  // namespace

OwnedLibrary LoadRichEditLibrary() {
  OwnedLibrary library(LoadLibraryW(L"msftedit.dll"));
  if (!library) {
    ThrowLastError("LoadLibrary");
  }
  return library;
}

void RichEdit::Create(HWND parent, int controlId, DWORD style) {
  handle_ = CreateWindowExW(0, kControlClass, L"", WS_CHILD | style, 0, 0, 0, 0, parent,
                            reinterpret_cast<HMENU>(static_cast<INT_PTR>(controlId)), nullptr, nullptr);
  if (handle_ == nullptr) {
    ThrowLastError("CreateWindowEx");
  }
  Send(EM_EXLIMITTEXT, 0, kNoLimit);
  Send(EM_SETUNDOLIMIT, 0);
  Send(EM_EMPTYUNDOBUFFER);
}

std::size_t RichEdit::Length() const {
  GETTEXTLENGTHEX what{GTL_DEFAULT | GTL_NUMCHARS | GTL_PRECISE, kUtf16};
  return static_cast<std::size_t>(Send(EM_GETTEXTLENGTHEX, reinterpret_cast<WPARAM>(&what)));
}

std::u16string RichEdit::Text() const {
  std::u16string text(Length() + 1, u'\0');
  GETTEXTEX what{};
  what.cb = static_cast<DWORD>(text.size() * sizeof(char16_t));
  what.flags = GT_DEFAULT;
  what.codepage = kUtf16;
  const LRESULT length = Send(EM_GETTEXTEX, reinterpret_cast<WPARAM>(&what), reinterpret_cast<LPARAM>(text.data()));
  text.resize(static_cast<std::size_t>(length));
  return text;
}

std::u16string RichEdit::Text(CHARRANGE range) const {
  std::wstring text(static_cast<std::size_t>(range.cpMax - range.cpMin) + 1, L'\0');
  TEXTRANGEW what{range, text.data()};
  const LRESULT length = Send(EM_GETTEXTRANGE, 0, reinterpret_cast<LPARAM>(&what));
  text.resize(static_cast<std::size_t>(length));
  return FromWide(text);
}

void RichEdit::LoadText(std::u16string_view text) {
  StreamIn(*this, SF_TEXT | SF_UNICODE,
           {reinterpret_cast<const char*>(text.data()), text.size() * sizeof(char16_t), true});
}

bool RichEdit::LoadRtf(std::string_view bytes) {
  return StreamIn(*this, SF_RTF, {bytes.data(), bytes.size(), false}) == 0;
}

std::string RichEdit::Rtf() const {
  return StreamOut(*this, SF_RTF);
}

std::string RichEdit::SelectedRtf() const {
  return StreamOut(*this, SF_RTF | SFF_SELECTION);
}

void RichEdit::ReplaceSelectionByRtf(std::string_view bytes) {
  StreamIn(*this, SF_RTF | SFF_SELECTION, {bytes.data(), bytes.size(), false});
}

CHARRANGE RichEdit::Selection() const {
  CHARRANGE range{};
  Send(EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&range));
  return range;
}

void RichEdit::Select(CHARRANGE range) {
  Send(EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&range));
}

void RichEdit::ScrollToCaret() {
  Send(EM_SCROLLCARET);
}

void RichEdit::ReplaceSelection(std::u16string_view text) {
  Send(EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(ToWide(text).c_str()));
}

POINT RichEdit::ScrollPosition() const {
  POINT position{};
  Send(EM_GETSCROLLPOS, 0, reinterpret_cast<LPARAM>(&position));
  return position;
}

void RichEdit::SetScrollPosition(POINT position) {
  Send(EM_SETSCROLLPOS, 0, reinterpret_cast<LPARAM>(&position));
}

CHARFORMAT2W RichEdit::SelectionFormat() const {
  CHARFORMAT2W format{};
  format.cbSize = sizeof(format);
  Send(EM_GETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&format));
  return format;
}

void RichEdit::SetSelectionFormat(const CHARFORMAT2W& format) {
  Send(EM_SETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&format));
}

PARAFORMAT2 RichEdit::SelectionParagraph() const {
  PARAFORMAT2 format{};
  format.cbSize = sizeof(format);
  Send(EM_GETPARAFORMAT, 0, reinterpret_cast<LPARAM>(&format));
  return format;
}

void RichEdit::SetSelectionParagraph(const PARAFORMAT2& format) {
  Send(EM_SETPARAFORMAT, 0, reinterpret_cast<LPARAM>(&format));
}

void RichEdit::SetDefaultFormat(const CHARFORMAT2W& format) {
  Send(EM_SETCHARFORMAT, SCF_DEFAULT, reinterpret_cast<LPARAM>(&format));
}

void RichEdit::SetFormatOfAll(const CHARFORMAT2W& format) {
  Send(EM_SETCHARFORMAT, SCF_ALL, reinterpret_cast<LPARAM>(&format));
}

void RichEdit::SetWordWrap(bool wrap) {
  Send(EM_SETTARGETDEVICE, 0, wrap ? 0 : 1);
}

void RichEdit::SetReadOnly(bool readOnly) {
  Send(EM_SETREADONLY, readOnly ? TRUE : FALSE);
}

std::size_t RichEdit::LineCount() const {
  return static_cast<std::size_t>(Send(EM_GETLINECOUNT));
}

std::size_t RichEdit::LineOf(LONG position) const {
  return static_cast<std::size_t>(Send(EM_EXLINEFROMCHAR, 0, position));
}

DWORD RichEdit::EventMask() const {
  return static_cast<DWORD>(Send(EM_GETEVENTMASK));
}

void RichEdit::SetEventMask(DWORD mask) {
  Send(EM_SETEVENTMASK, 0, static_cast<LPARAM>(mask));
}

LRESULT RichEdit::Send(UINT message, WPARAM wParam, LPARAM lParam) const {
  return SendMessageW(handle_, message, wParam, lParam);
}

QuietRichEdit::QuietRichEdit(RichEdit& box) : box_(box), eventMask_(box.EventMask()) {
  box_.SetEventMask(0);
  box_.Send(WM_SETREDRAW, FALSE);
}

QuietRichEdit::~QuietRichEdit() {
  box_.Send(WM_SETREDRAW, TRUE);
  box_.SetEventMask(eventMask_);
  RedrawWindow(box_.handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME);
}

}  // namespace scrivanta
