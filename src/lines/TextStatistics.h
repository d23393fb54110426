// Counts the characters and the lines of a text.
#pragma once

#include <cstdint>

#include "text/Bytes.h"
#include "text/Encoding.h"
#include "text/LineReader.h"

namespace scrivanta {

struct TextStatistics {
  std::uint64_t characters = 0;  // UTF-16 code units; a line break counts two
  std::uint64_t hardLines = 0;   // a final line break does not start a further line
};

// Throws FileError, Interrupted.
TextStatistics CountText(ByteSource& source, LineEnds lineEnds, Encoding encoding, Progress& progress);

}  // namespace scrivanta
