// The different lines that have been judged, each by a place in the joined keys where its text stands.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "lines/duplicates/JoinedKeys.h"

namespace scrivanta {

class SeenLines {
 public:
  // The bytes of all lines to come, as far as they can be known.
  explicit SeenLines(std::uint64_t expectedBytes);
  // Asks the memory for what Contains will need for this hash.
  void Prefetch(std::uint64_t hash) const {
    __builtin_prefetch(&entries_[static_cast<std::uint32_t>(hash) & (entries_.size() - 1)]);
  }
  // The hash is HashBytes of the line.
  bool Contains(const JoinedKeys& keys, std::string_view line, std::uint64_t hash) const;
  // The line must not be contained yet.
  void Add(std::size_t place, std::size_t length, std::uint64_t hash);

 private:
  struct Entry {
    std::uint32_t hash = 0;
    std::uint32_t length = 0;
    std::size_t place = 0;  // 0: a free slot, since a space stands there
  };

  std::size_t FreeSlot(std::uint32_t hash) const;

  std::vector<Entry> entries_;  // open addressing, a power of two
  std::size_t used_ = 0;
};

}  // namespace scrivanta
