#include "tables/RowsByKey.h"

#include <functional>
#include <stdexcept>

namespace scrivanta {

namespace {

constexpr std::size_t kFirstSlots = 1024;

std::uint32_t HashOf(std::string_view key) {
  const std::size_t hash = std::hash<std::string_view>()(key);
  return static_cast<std::uint32_t>(hash ^ (hash >> 32U));
}

}  // namespace

void RowsByKey::Add(std::string_view key) {
  const auto row = static_cast<std::uint32_t>(rows_.size());
  if (rows_.size() >= kNone) {
    throw std::length_error("the table has too many rows to be joined");
  }
  if (keys_.size() * 2 >= slots_.size()) {
    Grow();
  }
  const std::uint32_t hash = HashOf(key);
  std::uint32_t& slot = slots_[SlotOf(key, hash)];
  if (slot == kNone) {
    slot = static_cast<std::uint32_t>(keys_.size());
    keys_.push_back({text_.size(), static_cast<std::uint32_t>(key.size()), hash, row, row, false});
    text_.append(key);
  } else {
    rows_[keys_[slot].lastRow].next = row;
    keys_[slot].lastRow = row;
  }
  rows_.push_back({slot, kNone});
}

std::uint32_t RowsByKey::Find(std::string_view key) const {
  return slots_.empty() ? kNone : slots_[SlotOf(key, HashOf(key))];
}

// Where the key stands, or would stand.
std::size_t RowsByKey::SlotOf(std::string_view key, std::uint32_t hash) const {
  std::size_t slot = hash & (slots_.size() - 1);
  while (slots_[slot] != kNone) {
    const Key& at = keys_[slots_[slot]];
    if (at.hash == hash && std::string_view(text_).substr(at.begin, at.length) == key) {
      break;
    }
    slot = (slot + 1) & (slots_.size() - 1);
  }
  return slot;
}

void RowsByKey::Grow() {
  slots_.assign(slots_.empty() ? kFirstSlots : slots_.size() * 2, kNone);
  for (std::uint32_t key = 0; key < keys_.size(); ++key) {
    std::size_t slot = keys_[key].hash & (slots_.size() - 1);
    while (slots_[slot] != kNone) {
      slot = (slot + 1) & (slots_.size() - 1);
    }
    slots_[slot] = key;
  }
}

}  // namespace scrivanta
