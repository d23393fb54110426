#include "text/IniText.h"

#include <algorithm>
#include <cstdint>

#include "text/LineText.h"
#include "text/Surrogates.h"

namespace scrivanta {
namespace {

constexpr std::u16string_view kEscapeStart = u"<#";
constexpr std::u16string_view kEscapeEnd = u"#>";
constexpr std::size_t kEscapeDigits = 4;
constexpr std::size_t kEscapeLength = 8;
constexpr std::u16string_view kHexDigits = u"0123456789abcdef";
constexpr std::u16string_view kEscapedBracket = u"<#005b#>";

std::u16string Escaped(char16_t unit) {
  std::u16string escape(kEscapeStart);
  for (unsigned shift = 16; shift > 0; shift -= 4) {
    escape += kHexDigits[(unit >> (shift - 4)) & 0xFU];
  }
  return escape.append(kEscapeEnd);
}

// The unit that the text begins with in its escaped form.
std::optional<char16_t> EscapeAtStart(std::u16string_view text) {
  if (text.size() < kEscapeLength || !text.starts_with(kEscapeStart) ||
      text.substr(kEscapeLength - kEscapeEnd.size(), kEscapeEnd.size()) != kEscapeEnd) {
    return std::nullopt;
  }
  unsigned unit = 0;
  for (const char16_t digit : text.substr(kEscapeStart.size(), kEscapeDigits)) {
    const std::size_t value = kHexDigits.find(digit);
    if (value == std::u16string_view::npos) {
      return std::nullopt;
    }
    unit = unit * 16 + static_cast<unsigned>(value);
  }
  return static_cast<char16_t>(unit);
}

std::u16string Unescape(std::u16string_view escaped) {
  std::u16string text;
  text.reserve(escaped.size());
  while (!escaped.empty()) {
    const std::optional<char16_t> unit = EscapeAtStart(escaped);
    text += unit.value_or(escaped.front());
    escaped.remove_prefix(unit ? kEscapeLength : 1);
  }
  return text;
}

bool IsLoneSurrogate(std::u16string_view text, std::size_t at) {
  if (IsHighSurrogate(text[at])) {
    return at + 1 == text.size() || !IsLowSurrogate(text[at + 1]);
  }
  return IsLowSurrogate(text[at]) && (at == 0 || !IsHighSurrogate(text[at - 1]));
}

// With the units escaped that no line can hold, and those of which the caller says so.
template <typename Predicate>
std::u16string Escape(std::u16string_view text, Predicate isSpecial) {
  std::u16string escaped;
  escaped.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char16_t unit = text[i];
    const bool special = unit == u'\r' || unit == u'\n' || unit == u'\0' || IsLoneSurrogate(text, i) ||
                         EscapeAtStart(text.substr(i)).has_value() || isSpecial(i);
    escaped += special ? Escaped(unit) : std::u16string(1, unit);
  }
  return escaped;
}

std::u16string EscapeSection(std::u16string_view section) {
  return Escape(section, [](std::size_t) { return false; });
}

std::u16string EscapeKey(std::u16string_view key) {
  return Escape(key, [key](std::size_t i) {
    const bool atEnd = i == 0 || i + 1 == key.size();
    return key[i] == u'=' || (key[i] == u' ' && atEnd) || (key[i] == u'\t' && i == 0);
  });
}

std::u16string EscapeValue(std::u16string_view value) {
  return Escape(value, [value](std::size_t i) { return i == 0 && value[i] == u' '; });
}

std::u16string_view WithoutBlanksBefore(std::u16string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(u' '), text.size()));
  return text;
}

// The escaped name in a line "[section]"; blanks and tabs around it do no harm.
std::optional<std::u16string_view> SectionOfHeader(std::u16string_view line) {
  const std::size_t first = line.find_first_not_of(u" \t");
  const std::size_t last = line.find_last_not_of(u" \t");
  if (first == std::u16string_view::npos || first == last || line[first] != u'[' || line[last] != u']') {
    return std::nullopt;
  }
  return line.substr(first + 1, last - first - 1);
}

// The part of an entry's line behind the equals sign and the blanks after it.
std::optional<std::u16string_view> ValueOfEntry(std::u16string_view line, std::u16string_view escapedKey) {
  std::u16string_view rest = WithoutBlanksBefore(line);
  if (!rest.starts_with(escapedKey)) {
    return std::nullopt;
  }
  rest = WithoutBlanksBefore(rest.substr(escapedKey.size()));
  if (!rest.starts_with(u'=')) {
    return std::nullopt;
  }
  return WithoutBlanksBefore(rest.substr(1));
}

// Where a line of the text stands, and where the next one begins.
struct LinePlace {
  std::size_t begin;
  std::size_t end;  // without the line end
  std::size_t next;
};

LinePlace LineAt(std::u16string_view text, std::size_t begin) {
  const std::size_t end = std::min(text.find_first_of(u"\r\n", begin), text.size());
  const std::size_t lineEnd = text.substr(end).starts_with(u"\r\n") ? 2 : end < text.size() ? 1 : 0;
  return {begin, end, end + lineEnd};
}

bool IsBlankOrComment(std::u16string_view line) {
  const std::size_t first = line.find_first_not_of(u" \t");
  return first == std::u16string_view::npos || line[first] == u';' || line[first] == u'#';
}

// A key may begin with a bracket as long as its line cannot be taken for a section's.
std::u16string EntryLine(std::u16string_view escapedKey, std::u16string_view layout, std::u16string_view escapedValue) {
  std::u16string line(escapedKey);
  line.append(layout).append(escapedValue);
  if (SectionOfHeader(line)) {
    line.replace(0, 1, kEscapedBracket);
  }
  return line;
}

}  // namespace

// Positions in the text.
struct IniText::Place {
  bool found = false;
  std::size_t keyBegin = 0;  // of the entry that was found
  std::size_t valueBegin = 0;
  std::size_t valueEnd = 0;
  std::optional<std::size_t> insertAt;  // where a new entry of the section belongs; nothing when there is no section
};

IniText::Place IniText::Locate(std::u16string_view section, std::u16string_view key) const {
  const std::u16string escapedSection = EscapeSection(section);
  const std::u16string escapedKey = EscapeKey(key);
  const std::u16string bracketKey =
      escapedKey.starts_with(u'[') ? std::u16string(kEscapedBracket) + escapedKey.substr(1) : escapedKey;
  const std::u16string_view text = text_;
  Place place;
  bool inside = false;
  bool insertHere = false;
  for (std::size_t nextLine = 0; nextLine < text.size();) {
    const auto [begin, end, next] = LineAt(text, nextLine);
    nextLine = next;
    const std::u16string_view line = text.substr(begin, end - begin);
    if (const auto header = SectionOfHeader(line)) {
      inside = *header == escapedSection;
      insertHere = inside && !place.insertAt;
      if (insertHere) {
        place.insertAt = next;
      }
    } else if (inside) {
      auto value = ValueOfEntry(line, escapedKey);
      if (!value) {
        value = ValueOfEntry(line, bracketKey);
      }
      if (value) {
        place.found = true;
        place.keyBegin = begin + (line.size() - WithoutBlanksBefore(line).size());
        place.valueBegin = end - value->size();
        place.valueEnd = end;
        return place;
      }
      if (insertHere && !IsBlankOrComment(line)) {
        place.insertAt = next;
      }
    }
  }
  return place;
}

std::optional<std::u16string> IniText::Find(std::u16string_view section, std::u16string_view key) const {
  const Place place = Locate(section, key);
  if (!place.found) {
    return std::nullopt;
  }
  return Unescape(std::u16string_view(text_).substr(place.valueBegin, place.valueEnd - place.valueBegin));
}

IniEntries IniText::Entries(std::u16string_view section) const {
  const std::u16string escapedSection = EscapeSection(section);
  const std::u16string_view text = text_;
  IniEntries entries;
  bool inside = false;
  for (std::size_t nextLine = 0; nextLine < text.size();) {
    const auto [begin, end, next] = LineAt(text, nextLine);
    nextLine = next;
    const std::u16string_view line = text.substr(begin, end - begin);
    if (const auto header = SectionOfHeader(line)) {
      inside = *header == escapedSection;
      continue;
    }
    const std::size_t equals = line.find(u'=');
    if (inside && equals != std::u16string_view::npos) {
      entries.emplace(Unescape(TrimSpaces(line.substr(0, equals))),
                      Unescape(WithoutBlanksBefore(line.substr(equals + 1))));
    }
  }
  return entries;
}

void IniText::Set(std::u16string_view section, std::u16string_view key, std::u16string_view value) {
  const Place place = Locate(section, key);
  const std::u16string escapedValue = EscapeValue(value);
  const std::u16string lineEnd = LineEnd();
  if (place.found) {
    const std::u16string before = text_.substr(place.keyBegin, place.valueBegin - place.keyBegin);
    text_.replace(place.keyBegin, place.valueEnd - place.keyBegin, EntryLine(before, {}, escapedValue));
    return;
  }
  const std::u16string entry = EntryLine(EscapeKey(key), u" = ", escapedValue) + lineEnd;
  if (place.insertAt) {
    Insert(*place.insertAt, entry);
  } else {
    Insert(text_.size(), u"[" + EscapeSection(section) + u"]" + lineEnd + entry);
  }
}

// Lines go behind a line end, also where the last line of the text has none.
void IniText::Insert(std::size_t position, std::u16string_view lines) {
  const bool endsLine = position == 0 || text_[position - 1] == u'\n' || text_[position - 1] == u'\r';
  text_.insert(position, (endsLine ? std::u16string() : LineEnd()).append(lines));
}

// As the first line has it.
std::u16string IniText::LineEnd() const {
  const std::size_t end = text_.find_first_of(u"\r\n");
  if (end == std::u16string::npos || text_.compare(end, 2, u"\r\n") == 0) {
    return u"\r\n";
  }
  return {text_[end]};
}

}  // namespace scrivanta
