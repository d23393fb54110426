// The lines of places in a text.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace scrivanta {

// Numbers of lines, asked for from the beginning to the end. As in a document, where every CR LF, CR and LF ends a
// line. In front of the LF of a CR LF is still the line that it ends.
class LineCounter {
 public:
  explicit LineCounter(std::u16string_view text) : text_(text) {}
  // From 1; no place comes before the one that was asked for last.
  std::size_t NumberAt(std::size_t place);

 private:
  std::u16string_view text_;
  std::size_t at_ = 0;
  std::size_t number_ = 1;
};

std::size_t BeginOfLineAt(std::u16string_view text, std::size_t place);
// Without its line break.
std::size_t EndOfLineAt(std::u16string_view text, std::size_t place);

// The beginning or the end of a long text, and a sign for the rest.
std::u16string Beginning(std::u16string_view text, std::size_t most);
std::u16string Ending(std::u16string_view text, std::size_t most);

}  // namespace scrivanta
