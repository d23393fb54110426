// Lines and pieces of text that many parts of the program take apart and put together.
#pragma once

#include <cstddef>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace scrivanta {

constexpr bool IsDigit(char16_t c) {
  return c >= u'0' && c <= u'9';
}

// Without these characters at both ends.
template <typename Character>
std::basic_string_view<Character> Trim(std::basic_string_view<Character> text,
                                       std::type_identity_t<std::basic_string_view<Character>> blanks) {
  const std::size_t first = text.find_first_not_of(blanks);
  return first == text.npos ? text.substr(0, 0) : text.substr(first, text.find_last_not_of(blanks) + 1 - first);
}

// Without the space characters at both ends; tabs stay.
template <typename Character>
std::basic_string_view<Character> TrimSpaces(std::basic_string_view<Character> text) {
  constexpr auto kSpace = static_cast<Character>(' ');
  return Trim(text, {&kSpace, 1});
}

// Every occurrence of one text replaced by another. The first is not empty.
std::u16string WithReplaced(std::u16string_view text, std::u16string_view from, std::u16string_view to);

// Puts a line behind others, a line break (CR LF) between them. No line is empty.
void AppendLine(std::u16string& joined, std::u16string_view line);
// The lines with line breaks between them.
std::u16string JoinLines(const std::vector<std::u16string>& lines);
// The lines between line breaks, without empty ones.
std::vector<std::u16string> SplitLines(std::u16string_view text);

// Where a line begins, counted from 1, in a text whose lines end with CR LF; nothing when it has no such line.
std::optional<std::size_t> BeginOfLine(std::u16string_view text, long long number);

// A line of a table with tabs, its line break (CR LF) included; tabs and line breaks in a field become blanks.
std::u16string TableLine(std::initializer_list<std::u16string_view> fields);

// CR LF and CR become LF.
std::string WithLineFeedsOnly(std::string text);
// Every line feed, with the carriage return before it if there is one, becomes CR LF.
std::u16string WithFullLineBreaks(std::u16string text);
// Every lone carriage return too.
std::u16string WithOnlyFullLineBreaks(std::u16string_view text);

}  // namespace scrivanta
