#include "window/driver/EditBoxDriver.h"

#include <algorithm>

#include "rtf/FormattedText.h"
#include "rtf/StandardRtf.h"
#include "text/win/WideText.h"
#include "window/driver/Wait.h"
#include "window/driver/WindowProbe.h"

namespace scrivanta {

namespace {

constexpr UINT kUtf16 = 1200;

// The control counts a line break once: its position is less by the line breaks that begin before it.
LONG ToControl(std::u16string_view text, std::size_t position) {
  const auto before = text.substr(0, std::min(position, text.size()));
  return static_cast<LONG>(before.size()) - static_cast<LONG>(std::ranges::count(before, u'\n'));
}

std::size_t ToText(std::u16string_view text, LONG position) {
  std::size_t index = 0;
  for (LONG passed = 0; passed < position && index < text.size(); ++passed) {
    index += text.substr(index, 2) == u"\r\n" ? 2 : 1;
  }
  return index;
}

}  // namespace

std::u16string EditBoxDriver::Text() const {
  GETTEXTLENGTHEX lengthWanted{GTL_USECRLF | GTL_PRECISE | GTL_NUMCHARS, kUtf16};
  const auto length =
      static_cast<std::size_t>(Send(window_, EM_GETTEXTLENGTHEX, reinterpret_cast<WPARAM>(&lengthWanted)));
  std::wstring text(length + 1, L'\0');
  GETTEXTEX wanted{static_cast<DWORD>(text.size() * sizeof(wchar_t)), GT_USECRLF, kUtf16, nullptr, nullptr};
  text.resize(static_cast<std::size_t>(
      Send(window_, EM_GETTEXTEX, reinterpret_cast<WPARAM>(&wanted), reinterpret_cast<LPARAM>(text.data()))));
  return FromWide(text);
}

TextRange EditBoxDriver::Selection() const {
  CHARRANGE range{};
  Send(window_, EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&range));
  const std::u16string text = Text();
  const std::size_t start = ToText(text, range.cpMin);
  return {{start}, ToText(text, range.cpMax) - start};
}

std::u16string EditBoxDriver::SelectedText() const {
  const TextRange selection = Selection();
  return Text().substr(selection.start.value, selection.length);
}

void EditBoxDriver::Select(TextRange range) const {
  const std::u16string text = Text();
  CHARRANGE selection{ToControl(text, range.start.value), ToControl(text, range.end().value)};
  Send(window_, EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&selection));
}

void EditBoxDriver::SelectText(std::u16string_view text) const {
  const std::size_t found = Text().find(text);
  if (found == std::u16string::npos) {
    FailWithPicture("the text to select does not stand in the document: " + Shown(text));
  }
  Select({{found}, text.size()});
}

void EditBoxDriver::Insert(std::u16string_view text) const {
  Send(window_, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(ToWide(text).c_str()));
}

POINT EditBoxDriver::ScreenPlace(std::size_t position) const {
  POINTL place{};
  Send(window_, EM_POSFROMCHAR, reinterpret_cast<WPARAM>(&place), ToControl(Text(), position));
  POINT point{place.x, place.y};
  ClientToScreen(window_, &point);
  return point;
}

CHARFORMAT2W EditBoxDriver::SelectionFormat() const {
  CHARFORMAT2W format{};
  format.cbSize = sizeof(format);
  Send(window_, EM_GETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&format));
  return format;
}

std::string EditBoxDriver::Effects() const {
  std::string rtf;
  EDITSTREAM stream{};
  stream.dwCookie = reinterpret_cast<DWORD_PTR>(&rtf);
  stream.pfnCallback = [](DWORD_PTR cookie, BYTE* bytes, LONG count, LONG* taken) -> DWORD {
    reinterpret_cast<std::string*>(cookie)->append(reinterpret_cast<const char*>(bytes),
                                                   static_cast<std::size_t>(count));
    *taken = count;
    return 0;
  };
  Send(window_, EM_STREAMOUT, SF_RTF | SF_USECODEPAGE | (CP_UTF8 << 16U), reinterpret_cast<LPARAM>(&stream));
  const std::u16string text = Text();
  std::u16string ofControl = text;
  std::erase(ofControl, u'\n');
  const auto formatted = FormattedText::Read(StandardRtf(rtf, [&ofControl] { return ofControl; }));
  if (!formatted || formatted->text() != ofControl) {
    throw DriverFailure("the rich text is not that of the text " + Shown(text) + ": " + rtf);
  }
  std::string effects;
  std::size_t at = 0;  // in the rich text, where a line break is one unit
  for (const FormatRun& run : formatted->formats().runs) {
    int effect = 0;
    for (const auto& [what, word] : *run.format) {
      effect += what == "b" ? 1 : what == "i" ? 2 : what == "ul" ? 4 : 0;
    }
    for (const std::size_t end = at + run.length; at < end && effects.size() < text.size(); ++at) {
      const bool isBreak = text.compare(effects.size(), 2, u"\r\n") == 0;
      // Wine's control does not tell the format of a tab.
      const bool isTab = text[effects.size()] == u'\t';
      effects += isBreak ? std::string("00") : std::string(1, static_cast<char>('0' + (isTab ? 0 : effect)));
    }
  }
  // The control leaves out the last line break.
  effects.resize(text.size(), '0');
  return effects;
}

}  // namespace scrivanta
