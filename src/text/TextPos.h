// Places in the document text.
#pragma once

#include <compare>
#include <cstddef>

namespace scrivanta {

// A position in the document text, in UTF-16 code units from 0; a line break (CR LF) counts two. The control's own
// positions count it once and have a type of their own (ControlPos), so that the two cannot be mixed.
struct TextPos {
  std::size_t value = 0;
  friend auto operator<=>(const TextPos&, const TextPos&) = default;
};

struct TextRange {
  TextPos start;
  std::size_t length = 0;  // in UTF-16 code units

  bool empty() const noexcept { return length == 0; }
  TextPos end() const noexcept { return {start.value + length}; }
  friend bool operator==(const TextRange&, const TextRange&) = default;
};

}  // namespace scrivanta
