// Lines out of bytes, with memory for one line and one block.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "text/Bytes.h"
#include "text/Progress.h"

namespace scrivanta {

enum class LineEnds {
  kCrLf,      // a line ends at CR LF; a lone CR or LF is part of the line
  kCrLfOrLf,  // a line ends at CR LF or at LF
};

class LineReader {
 public:
  // Reports the bytes read to progress, block by block.
  LineReader(ByteSource& source, LineEnds lineEnds, Progress& progress);

  // Moves to the next line; false at the end. A final line end does not start a further line. Throws FileError,
  // Interrupted.
  bool Next();
  // The bytes of the line without its line end, valid until the next call of Next.
  std::string_view line() const noexcept { return line_; }
  // What ended it: CR LF, LF, or nothing at the end of the bytes.
  std::string_view lineEnd() const noexcept { return lineEnd_; }
  // Lines count from 1; 0 before the first call of Next.
  std::uint64_t number() const noexcept { return number_; }
  // Of all the bytes that are read, where it is known.
  std::optional<std::uint64_t> sourceSize() const { return source_.Size(); }

 private:
  bool Refill();

  ByteSource& source_;
  LineEnds lineEnds_;
  Progress& progress_;
  std::vector<char> buffer_;
  std::size_t begin_ = 0;  // of what is not yet handed out, in buffer_
  std::size_t end_ = 0;
  bool atEnd_ = false;
  std::string_view line_;
  std::string_view lineEnd_;
  std::uint64_t number_ = 0;
  std::uint64_t bytesRead_ = 0;
};

}  // namespace scrivanta
