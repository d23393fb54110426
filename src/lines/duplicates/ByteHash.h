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
  // The rest in loads of a fixed size, which may overlap: its length is in the hash already.
  if (bytes.size() >= sizeof(std::uint32_t)) {
    std::uint32_t first = 0;
    std::uint32_t last = 0;
    std::memcpy(&first, bytes.data(), sizeof(first));
    std::memcpy(&last, bytes.data() + bytes.size() - sizeof(last), sizeof(last));
    part = (std::uint64_t{first} << 32U) | last;
  } else if (!bytes.empty()) {
    const auto byte = [bytes](std::size_t at) {
      return static_cast<std::uint64_t>(static_cast<unsigned char>(bytes[at]));
    };
    part = (byte(0) << 16U) | (byte(bytes.size() / 2) << 8U) | byte(bytes.size() - 1);
  } else {
    part = 0;
  }
  mix(part);
  return hash;
}

}  // namespace scrivanta
