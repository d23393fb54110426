#include "win/RichEdit.h"

#include <tom.h>

#include <algorithm>
#include <cstring>
#include <limits>
#include <system_error>
#include <utility>

#include "rtf/RtfGroup.h"
#include "rtf/StandardRtf.h"
#include "text/ExplainedError.h"
#include "text/Surrogates.h"
#include "text/win/PlatformError.h"
#include "text/win/WideText.h"
#include "win/HeldFailure.h"

namespace scrivanta {

namespace {

constexpr wchar_t kControlClass[] = L"RICHEDIT50W";
constexpr LPARAM kNoLimit = 0x7ffffffe;
constexpr UINT kUtf16 = 1200;
constexpr WPARAM kUtf8Rtf = SF_RTF | SF_USECODEPAGE | (WPARAM{CP_UTF8} << 16U);

// Of a piece of text, in UTF-16 code units: about 10 ms for the slowest control known. That one lays a line out anew
// with every piece of it, hence the larger pieces of a long line; but given such a line at once it never ends.
constexpr std::size_t kPiece = 4096;
constexpr std::size_t kPieceOfLongLine = 8 * kPiece;
constexpr std::size_t kRtfPiece = 4 * kPiece;  // of rich text, in bytes

constexpr LONG kEnd = std::numeric_limits<LONG>::max();

// Hands bytes to the control as it asks for them.
struct Feed {
  std::string_view bytes;
  std::size_t total;
  Progress& progress;
  HeldFailure failure = {};

  static DWORD CALLBACK Next(DWORD_PTR cookie, BYTE* buffer, LONG room, LONG* written) {
    auto& feed = *reinterpret_cast<Feed*>(cookie);
    const std::size_t count = std::min(feed.bytes.size(), static_cast<std::size_t>(room));
    std::memcpy(buffer, feed.bytes.data(), count);
    feed.bytes.remove_prefix(count);
    *written = static_cast<LONG>(count);
    const bool goesOn = feed.failure.Hold([&] { feed.progress.Report(feed.total - feed.bytes.size(), feed.total); });
    return goesOn ? ERROR_SUCCESS : ERROR_CANCELLED;
  }
};

// A piece never ends between CR and LF or inside a surrogate pair, which would be damaged.
std::u16string_view FirstPiece(std::u16string_view text) {
  const bool isLongLine = text.substr(0, kPieceOfLongLine).find(u'\r') == std::u16string_view::npos;
  const std::size_t length = isLongLine ? kPieceOfLongLine : kPiece;
  if (text.size() <= length) {
    return text;
  }
  const char16_t last = text[length - 1];
  return text.substr(0, last == u'\r' || IsHighSurrogate(last) ? length - 1 : length);
}

// Whole lines, as many as fit into a piece, at least one.
std::string_view FirstLines(std::string_view lines) {
  const std::size_t end = lines.find(kRtfLineEnd, kRtfPiece);
  return end == std::string_view::npos ? lines : lines.substr(0, end + kRtfLineEnd.size());
}

std::string_view BytesOf(std::u16string_view text) {
  return {reinterpret_cast<const char*>(text.data()), text.size() * sizeof(char16_t)};
}

void Require(DWORD error, const char* message) {
  if (error != 0) {
    throw std::system_error(static_cast<int>(error), std::system_category(), message);
  }
}

// Takes the bytes that the control gives.
struct Collection {
  std::string bytes;
  HeldFailure failure = {};

  static DWORD CALLBACK Take(DWORD_PTR cookie, BYTE* buffer, LONG count, LONG* taken) {
    auto& collection = *reinterpret_cast<Collection*>(cookie);
    const bool goesOn = collection.failure.Hold(
        [&] { collection.bytes.append(reinterpret_cast<const char*>(buffer), static_cast<std::size_t>(count)); });
    *taken = goesOn ? count : 0;
    return goesOn ? ERROR_SUCCESS : ERROR_NOT_ENOUGH_MEMORY;
  }
};

// Throws what the progress throws. Returns the error of the control, 0 when there is none.
DWORD StreamIn(const RichEdit& box, WPARAM format, std::string_view bytes, Progress& progress) {
  Feed feed{bytes, bytes.size(), progress};
  EDITSTREAM stream{};
  stream.dwCookie = reinterpret_cast<DWORD_PTR>(&feed);
  stream.pfnCallback = &Feed::Next;
  box.Send(EM_STREAMIN, format, reinterpret_cast<LPARAM>(&stream));
  feed.failure.Rethrow();
  return stream.dwError;
}

std::string StreamOut(const RichEdit& box, WPARAM format) {
  Collection collection;
  EDITSTREAM stream{};
  stream.dwCookie = reinterpret_cast<DWORD_PTR>(&collection);
  stream.pfnCallback = &Collection::Take;
  box.Send(EM_STREAMOUT, format, reinterpret_cast<LPARAM>(&stream));
  collection.failure.Rethrow();
  Require(stream.dwError, "EM_STREAMOUT");
  return std::move(collection.bytes);
}

// A control that comes to something it cannot write, as a picture, may end there and say nothing.
std::string StreamOutRtf(const RichEdit& box, WPARAM part) {
  std::string rtf = StreamOut(box, kUtf8Rtf | part);
  if (EndOfGroup(rtf)) {
    return rtf;
  }
  throw ExplainedError("the edit control does not give its rich text as a whole",
                       u"文档里有编辑框不能完整给出的内容（例如图片），带格式的文本没有全部取出，因此没有进行。\n"
                       u"文档和原来的文件都没有改变。另存为 .txt 文件可以保存全部文字。");
}

// While it lives another part is selected, and nobody is told.
class SelectionPause {
 public:
  SelectionPause(const RichEdit& box, CHARRANGE range)
      : box_(box), selection_(box.Selection()), eventMask_(box.EventMask()) {
    box_.Send(EM_SETEVENTMASK, 0, 0);
    box_.Send(EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&range));
  }
  SelectionPause(const SelectionPause&) = delete;
  SelectionPause& operator=(const SelectionPause&) = delete;
  ~SelectionPause() {
    box_.Send(EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&selection_));
    box_.Send(EM_SETEVENTMASK, 0, static_cast<LPARAM>(eventMask_));
  }

 private:
  const RichEdit& box_;
  CHARRANGE selection_;
  DWORD eventMask_;
};

}  // namespace

OwnedLibrary LoadRichEditLibrary() {
  OwnedLibrary library(LoadLibraryExW(L"msftedit.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32));
  if (!library) {
    ThrowLastError("LoadLibraryEx");
  }
  return library;
}

void RichEdit::Create(HWND parent, int controlId, DWORD style) {
  style_ = style;
  handle_ = CreateWindowExW(0, kControlClass, L"", WS_CHILD | style, 0, 0, 0, 0, parent,
                            reinterpret_cast<HMENU>(static_cast<INT_PTR>(controlId)), nullptr, nullptr);
  if (handle_ == nullptr) {
    ThrowLastError("CreateWindowEx");
  }
  Send(EM_EXLIMITTEXT, 0, kNoLimit);
  Send(EM_SETUNDOLIMIT, 0);
  Send(EM_EMPTYUNDOBUFFER);
}

void RichEdit::CreateLike(const RichEdit& other, int controlId) {
  const HWND parent = GetParent(other.handle());
  Create(parent, controlId, other.style_ & ~DWORD{WS_VISIBLE});
  style_ = other.style_;
  RECT bounds{};
  GetWindowRect(other.handle(), &bounds);
  MapWindowPoints(nullptr, parent, reinterpret_cast<POINT*>(&bounds), 2);
  MoveWindow(handle_, bounds.left, bounds.top, bounds.right - bounds.left, bounds.bottom - bounds.top, FALSE);
  SetWordWrap(other.wraps_);
  Send(EM_SETLANGOPTIONS, 0, other.Send(EM_GETLANGOPTIONS));
  const CHARFORMAT2W format = other.DefaultFormat();
  SetDefaultFormat(format);
  SetFormatOfAll(format);
  int numerator = 0;
  int denominator = 0;
  other.Send(EM_GETZOOM, reinterpret_cast<WPARAM>(&numerator), reinterpret_cast<LPARAM>(&denominator));
  Send(EM_SETZOOM, static_cast<WPARAM>(numerator), denominator);
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

void RichEdit::LoadText(std::u16string_view text, Progress& progress) {
  NoProgress onlyPieces;
  for (std::u16string_view rest = text; !rest.empty();) {
    const std::u16string_view piece = FirstPiece(rest);
    Select({kEnd, kEnd});
    Require(StreamIn(*this, SF_TEXT | SF_UNICODE | SFF_SELECTION, BytesOf(piece), onlyPieces), "EM_STREAMIN");
    rest.remove_prefix(piece.size());
    progress.Report(text.size() - rest.size(), text.size());
  }
}

bool RichEdit::LoadRtf(std::string_view bytes, Progress& progress) {
  return StreamIn(*this, SF_RTF, WithParagraphEnds(bytes), progress) == 0;
}

void RichEdit::LoadRtfByLines(const RtfByLines& rtf, Progress& progress) {
  NoProgress onlyPieces;
  for (std::string_view rest = rtf.lines; !rest.empty();) {
    const std::string_view piece = FirstLines(rest);
    rest.remove_prefix(piece.size());
    // The control has a last line without an end; of a whole rich text it leaves out the last line's end for that.
    const std::string_view shown = rest.empty() ? piece.substr(0, piece.size() - kRtfLineEnd.size()) : piece;
    Select({kEnd, kEnd});
    const std::string whole = std::string(rtf.header).append(shown).append("}");
    Require(StreamIn(*this, SF_RTF | SFF_SELECTION, WithParagraphEnds(whole), onlyPieces), "EM_STREAMIN");
    progress.Report(rtf.lines.size() - rest.size(), rtf.lines.size());
  }
}

std::string RichEdit::Rtf() const {
  return StandardRtf(StreamOutRtf(*this, 0), [this] { return Text(); });
}

std::string RichEdit::SelectedRtf() const {
  return StandardRtf(StreamOutRtf(*this, SFF_SELECTION), [this] { return Text(Selection()); });
}

std::string RichEdit::RtfOf(CHARRANGE range) const {
  const SelectionPause pause(*this, range);
  return StandardRtf(StreamOutRtf(*this, SFF_SELECTION), [&] { return Text(range); });
}

bool RichEdit::ReplaceSelectionByRtf(std::string_view bytes) {
  NoProgress progress;
  return StreamIn(*this, SF_RTF | SFF_SELECTION, WithParagraphEnds(bytes), progress) == 0;
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
  if (text.find(u'\0') == std::u16string_view::npos) {
    Send(EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(ToWide(text).c_str()));
    return;
  }
  NoProgress progress;
  Require(StreamIn(*this, SF_TEXT | SF_UNICODE | SFF_SELECTION, BytesOf(text), progress), "EM_STREAMIN");
}

POINT RichEdit::ScrollPosition() const {
  POINT position{};
  Send(EM_GETSCROLLPOS, 0, reinterpret_cast<LPARAM>(&position));
  return position;
}

void RichEdit::SetScrollPosition(POINT position) {
  Send(EM_SETSCROLLPOS, 0, reinterpret_cast<LPARAM>(&position));
}

LONG RichEdit::FirstVisible() const {
  return static_cast<LONG>(Send(EM_LINEINDEX, static_cast<WPARAM>(Send(EM_GETFIRSTVISIBLELINE))));
}

POINT RichEdit::PlaceOf(LONG position) const {
  POINTL place{};
  Send(EM_POSFROMCHAR, reinterpret_cast<WPARAM>(&place), position);
  return {place.x, place.y};
}

int TextHeightIn(HWND box) {
  CHARFORMAT2W format{};
  format.cbSize = sizeof(format);
  SendMessageW(box, EM_GETCHARFORMAT, SCF_DEFAULT, reinterpret_cast<LPARAM>(&format));
  int numerator = 0;
  int denominator = 0;
  SendMessageW(box, EM_GETZOOM, reinterpret_cast<WPARAM>(&numerator), reinterpret_cast<LPARAM>(&denominator));
  constexpr int kTwipsPerInch = 1440;
  const int height = MulDiv(format.yHeight, static_cast<int>(GetDpiForWindow(box)), kTwipsPerInch);
  return denominator == 0 ? height : MulDiv(height, numerator, denominator);
}

CHARFORMAT2W RichEdit::SelectionFormat() const {
  CHARFORMAT2W format{};
  format.cbSize = sizeof(format);
  Send(EM_GETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&format));
  return format;
}

CHARFORMAT2W RichEdit::FormatOf(CHARRANGE range) const {
  const SelectionPause pause(*this, range);
  return SelectionFormat();
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

CHARFORMAT2W RichEdit::DefaultFormat() const {
  CHARFORMAT2W format{};
  format.cbSize = sizeof(format);
  Send(EM_GETCHARFORMAT, SCF_DEFAULT, reinterpret_cast<LPARAM>(&format));
  return format;
}

void RichEdit::SetDefaultFormat(const CHARFORMAT2W& format) {
  Send(EM_SETCHARFORMAT, SCF_DEFAULT, reinterpret_cast<LPARAM>(&format));
}

void RichEdit::SetFormatOfAll(const CHARFORMAT2W& format) {
  Send(EM_SETCHARFORMAT, SCF_ALL, reinterpret_cast<LPARAM>(&format));
}

void RichEdit::SetWordWrap(bool wraps) {
  wraps_ = wraps;
  Send(EM_SETTARGETDEVICE, 0, wraps ? 0 : 1);
}

void RichEdit::SetZoom(int percent) {
  constexpr int kWhole = 100;
  Send(EM_SETZOOM, percent == kWhole ? 0 : static_cast<WPARAM>(percent), percent == kWhole ? 0 : kWhole);
}

void RichEdit::SetReadOnly(bool readOnly) {
  Send(EM_SETREADONLY, readOnly ? TRUE : FALSE);
}

bool RichEdit::IsReadOnly() const {
  return (Send(EM_GETOPTIONS) & ECO_READONLY) != 0;
}

std::size_t RichEdit::LineCount() const {
  return static_cast<std::size_t>(Send(EM_GETLINECOUNT));
}

std::size_t RichEdit::LineOf(LONG position) const {
  return static_cast<std::size_t>(Send(EM_EXLINEFROMCHAR, 0, position));
}

LONG RichEdit::LineStart(LONG position) const {
  return static_cast<LONG>(Send(EM_LINEINDEX, LineOf(position)));
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

RichEditUndoPause::RichEditUndoPause(const RichEdit& box) {
  IUnknown* control = nullptr;
  box.Send(EM_GETOLEINTERFACE, 0, reinterpret_cast<LPARAM>(&control));
  if (control != nullptr) {
    // The identifier that the libraries hold is another one.
    constexpr IID kTextDocument = {0x8CC497C0, 0xA1DF, 0x11CE, {0x80, 0x98, 0x00, 0xAA, 0x00, 0x47, 0xBE, 0x5D}};
    control->QueryInterface(kTextDocument, reinterpret_cast<void**>(&document_));
    control->Release();
  }
  Tell(tomSuspend);
}

RichEditUndoPause::~RichEditUndoPause() {
  Tell(tomResume);
  if (document_ != nullptr) {
    document_->Release();
  }
}

void RichEditUndoPause::Tell(long what) const noexcept {
  if (document_ != nullptr) {
    document_->Undo(what, nullptr);
  }
}

}  // namespace scrivanta
