// Positions as the edit control counts them: in UTF-16 code units from 0, a line break once. The document text counts
// it twice (TextPos); LineBreakIndex converts between the two, and nothing else does.
#pragma once

#include <compare>
#include <cstddef>

namespace scrivanta {

struct ControlPos {
  std::size_t value = 0;
  friend auto operator<=>(const ControlPos&, const ControlPos&) = default;
};

struct ControlRange {
  ControlPos start;
  std::size_t length = 0;

  bool empty() const noexcept { return length == 0; }
  ControlPos end() const noexcept { return {start.value + length}; }
  friend bool operator==(const ControlRange&, const ControlRange&) = default;
};

}  // namespace scrivanta
