#include "window/driver/EditBoxDriver.h"

#include <algorithm>

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

CHARFORMAT2W EditBoxDriver::SelectionFormat() const {
  CHARFORMAT2W format{};
  format.cbSize = sizeof(format);
  Send(window_, EM_GETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&format));
  return format;
}

}  // namespace scrivanta
