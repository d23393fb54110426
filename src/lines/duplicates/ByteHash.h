#pragma once

#include <cstdint>
#include <cstring>
#include <string_view>

namespace scrivanta {

// Spreads texts over 64 bits, for tables in memory; the same text may have another value in another version or on
// another machine.
inline std::uint64_t HashBytes(std::string_view bytes) {
  constexpr std::uint64_t kFactor = 0xFF51AFD7ED558CCDU;
  std::uint64_t hash = 0x9E3779B97F4A7C15U ^ bytes.size();
  const auto mix = [&hash](std::uint64_t part) {
    hash = (hash ^ part) * kFactor;
    hash ^= hash >> 32U;
  };
  std::uint64_t part = 0;
  for (; bytes.size() >= sizeof(part); bytes.remove_prefix(sizeof(part))) {
    std::memcpy(&part, bytes.data(), sizeof(part));
    mix(part);
  }
  part = 0;
  std::memcpy(&part, bytes.data(), bytes.size());
  mix(part);
  return hash;
}

}  // namespace scrivanta
