#include "lines/duplicates/SeenLines.h"

#include <algorithm>
#include <bit>

namespace scrivanta {

namespace {

constexpr std::uint64_t kFewestSlots = 1024;
constexpr std::uint64_t kBytesOfASlot = 32;  // with a quarter of them free, lines of some forty bytes fill the table

}  // namespace

SeenLines::SeenLines(std::uint64_t expectedBytes)
    : entries_(static_cast<std::size_t>(std::bit_ceil(std::max(kFewestSlots, expectedBytes / kBytesOfASlot)))) {}

bool SeenLines::Contains(const JoinedKeys& keys, std::string_view line, std::uint64_t hash) const {
  const auto shortHash = static_cast<std::uint32_t>(hash);
  const std::size_t mask = entries_.size() - 1;
  for (std::size_t slot = shortHash & mask; entries_[slot].place != 0; slot = (slot + 1) & mask) {
    const Entry& entry = entries_[slot];
    if (entry.hash == shortHash && entry.length == static_cast<std::uint32_t>(line.size()) &&
        keys.HasAt(entry.place, line)) {
      return true;
    }
  }
  return false;
}

void SeenLines::Add(std::size_t place, std::size_t length, std::uint64_t hash) {
  if ((used_ + 1) * 4 > entries_.size() * 3) {
    std::vector<Entry> old(entries_.size() * 2);
    old.swap(entries_);
    for (const Entry& entry : old) {
      if (entry.place != 0) {
        entries_[FreeSlot(entry.hash)] = entry;
      }
    }
  }
  ++used_;
  const auto shortHash = static_cast<std::uint32_t>(hash);
  entries_[FreeSlot(shortHash)] = {shortHash, static_cast<std::uint32_t>(length), place};
}

std::size_t SeenLines::FreeSlot(std::uint32_t hash) const {
  const std::size_t mask = entries_.size() - 1;
  std::size_t slot = hash & mask;
  while (entries_[slot].place != 0) {
    slot = (slot + 1) & mask;
  }
  return slot;
}

}  // namespace scrivanta
