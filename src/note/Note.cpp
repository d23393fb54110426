#include "note/Note.h"

#include <algorithm>
#include <array>

#include "text/DecimalText.h"
#include "text/Encoding.h"
#include "text/Numbers.h"

namespace scrivanta {

namespace {

constexpr std::string_view kHead = "Scrivanta.Note\r\n";
constexpr std::string_view kLineEnd = "\r\n";
constexpr long long kFarthest = 1'000'000;  // twips: some 17 metres

std::u16string Line(std::u16string_view key, const std::u16string& value) {
  return std::u16string(key) + u"=" + value + u"\r\n";
}

int Between(std::u16string_view value, long long least, long long most) {
  return static_cast<int>(std::clamp(LeadingWholeNumber(value), least, most));
}

void Apply(NoteLook& look, std::u16string_view key, std::u16string_view value) {
  const std::array<std::pair<std::u16string_view, int*>, 4> lengths = {
      {{u"left", &look.left}, {u"top", &look.top}, {u"width", &look.width}, {u"height", &look.height}}};
  for (const auto& [name, length] : lengths) {
    if (key == name) {
      *length = Between(value, -kFarthest, kFarthest);
    }
  }
  if (key == u"font") {
    look.font = ApplyFontLine(look.font, value);
  } else if (key == u"paper") {
    constexpr long long kWhite = 0x00FFFFFF;
    look.paper = static_cast<std::uint32_t>(Between(value, 0, kWhite));
  } else if (key == u"opacity") {
    look.opacity = Between(value, kLeastOpacity, kMostOpacity);
  } else if (key == u"open") {
    look.isOpen = value == u"1";
  }
}

}  // namespace

std::string BytesOfNote(const Note& note) {
  const NoteLook& look = note.look;
  const std::u16string lines = Line(u"left", DecimalText(look.left)) + Line(u"top", DecimalText(look.top)) +
                               Line(u"width", DecimalText(look.width)) + Line(u"height", DecimalText(look.height)) +
                               Line(u"font", FontToLine(look.font)) + Line(u"paper", DecimalText(look.paper)) +
                               Line(u"opacity", DecimalText(look.opacity)) + Line(u"open", look.isOpen ? u"1" : u"0");
  return std::string(kHead) + Encode(Encoding::kUtf8, lines) + std::string(kLineEnd) +
         Encode(Encoding::kUtf8, note.text);
}

Note ReadNote(std::string_view bytes) {
  Note note;
  if (bytes.starts_with(kHead)) {
    bytes.remove_prefix(kHead.size());
    for (std::size_t end = bytes.find(kLineEnd); end != std::string_view::npos; end = bytes.find(kLineEnd)) {
      const std::u16string line = Decode(Encoding::kUtf8, bytes.substr(0, end));
      bytes.remove_prefix(end + kLineEnd.size());
      if (line.empty()) {
        break;
      }
      const std::size_t sign = line.find(u'=');
      if (sign != std::u16string::npos) {
        Apply(note.look, std::u16string_view(line).substr(0, sign), std::u16string_view(line).substr(sign + 1));
      }
    }
  }
  note.text = Decode(Encoding::kUtf8, bytes);
  return note;
}

std::u16string TitleOfNote(std::u16string_view text) {
  constexpr std::u16string_view kBlanks = u" \t\r\n\u3000";
  constexpr std::size_t kLongest = 40;
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::u16string_view::npos) {
    return u"空便笺";
  }
  text.remove_prefix(first);
  return std::u16string(text.substr(0, std::min(text.find_first_of(u"\r\n"), kLongest)));
}

}  // namespace scrivanta
