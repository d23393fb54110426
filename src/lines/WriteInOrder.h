#pragma once

#include <cstddef>

#include "lines/LineStore.h"
#include "lines/PacedProgress.h"
#include "text/LineWriter.h"

namespace scrivanta {

// Writes lines of a store in any order: indexAt(i) tells the one to write in place i, from 0. Throws FileError,
// Interrupted.
template <typename IndexAt>
void WriteInOrder(const LineStore& lines, std::size_t count, const IndexAt& indexAt, LineWriter& out,
                  Progress& progress) {
  constexpr std::size_t kAhead = 16;  // lines that are on their way from memory while others are written
  PacedProgress writing(progress, count);
  for (std::size_t i = 0; i < count; ++i) {
    writing.Step();
    if (i + kAhead < count) {
      lines.Prefetch(indexAt(i + kAhead));
    }
    out.WriteLine(lines[indexAt(i)]);
  }
}

}  // namespace scrivanta
