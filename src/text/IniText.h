// The text of an ini file, changed in place: whatever does not belong to the entry that is set stays as a person has
// written it - comments, order, blank lines, blanks around the equals sign, line ends.
//
// An entry is a line "key = value" below the line "[section]"; blanks around the key and before the value belong to the
// layout, all that follows up to the end of the line to the value. Sections, keys and values are taken literally and
// their case counts. What the layout cannot hold is written as "<#", four hexadecimal digits of the UTF-16 code unit,
// "#>": line ends, NUL and lone surrogates; the blank that a value begins with; blanks at the ends of a key, a tab at
// its beginning and "=" in it, and "[" at its beginning where the line would be a section's; and the first character of
// what would itself be read as such a sequence.
#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace scrivanta {

// The values of one section by their keys.
using IniEntries = std::map<std::u16string, std::u16string>;

class IniText {
 public:
  explicit IniText(std::u16string text) : text_(std::move(text)) {}

  // Of entries with the same key the first counts.
  std::optional<std::u16string> Find(std::u16string_view section, std::u16string_view key) const;
  // All entries of the section, read in one pass.
  IniEntries Entries(std::u16string_view section) const;
  // A new entry goes behind the last one of its section, a new section to the end.
  void Set(std::u16string_view section, std::u16string_view key, std::u16string_view value);

  const std::u16string& text() const noexcept { return text_; }

 private:
  struct Place;

  Place Locate(std::u16string_view section, std::u16string_view key) const;
  std::u16string LineEnd() const;
  void Insert(std::size_t position, std::u16string_view lines);

  std::u16string text_;
};

}  // namespace scrivanta
