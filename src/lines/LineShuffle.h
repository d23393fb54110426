// Puts lines into a random order.
#pragma once

#include <cstdint>

#include "lines/LineStore.h"
#include "text/LineWriter.h"
#include "text/Progress.h"

namespace scrivanta {

// Exchanges every line in turn with one drawn from all of them, and writes them. The orders are not all equally likely;
// the same seed gives the same order everywhere. Throws FileError, Interrupted.
void ShuffleLines(const LineStore& lines, LineWriter& out, std::uint64_t seed, Progress& progress);

}  // namespace scrivanta
