// The same bytes as characters, which files and strings are made of, and as numbers, which ciphers reckon with.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace scrivanta {

using Octets = std::vector<std::uint8_t>;

inline std::span<const std::uint8_t> AsOctets(std::string_view bytes) noexcept {
  return {reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()};
}

inline std::span<std::uint8_t> AsOctets(std::span<char> bytes) noexcept {
  return {reinterpret_cast<std::uint8_t*>(bytes.data()), bytes.size()};
}

inline std::string_view AsCharacters(std::span<const std::uint8_t> octets) noexcept {
  return {reinterpret_cast<const char*>(octets.data()), octets.size()};
}

}  // namespace scrivanta
