#pragma once

#include <span>

namespace scrivanta {

// The characters from first to last take this many cells of the screen; those between the runs take one.
struct CellWidthRun {
  char32_t first;
  char32_t last;
  int width;
};

// In order.
std::span<const CellWidthRun> CellWidthRuns() noexcept;

}  // namespace scrivanta
