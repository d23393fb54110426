// The piece of a file that is worked on at a time.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

#include "text/Bytes.h"

namespace scrivanta {

// Memory that is not filled with zeros first: a small file touches little of it.
class Chunk {
 public:
  explicit Chunk(std::size_t size) : memory_(std::make_unique_for_overwrite<char[]>(size)), size_(size) {}

  std::span<char> bytes() const noexcept { return {memory_.get(), size_}; }

 private:
  std::unique_ptr<char[]> memory_;
  std::size_t size_;
};

// The size of a chunk in whole groups of so many bytes: one that a small source does not fill, or at most `most`.
inline std::size_t ChunkSizeFor(const ByteSource& source, std::size_t group, std::size_t most) {
  return std::min<std::uint64_t>((source.Size().value_or(most) / group + 1) * group, most);
}

// Fills the buffer as far as the source goes, whatever its single reads give; less than the whole only at the end.
inline std::size_t FillFrom(ByteSource& source, std::span<char> buffer) {
  std::size_t filled = 0;
  while (filled < buffer.size()) {
    const std::size_t count = source.Read(buffer.subspan(filled));
    if (count == 0) {
      break;
    }
    filled += count;
  }
  return filled;
}

}  // namespace scrivanta
