#include "crypto/RandomSequence.h"

#include <bit>

namespace scrivanta {

namespace {

constexpr std::uint32_t kStateMask = 0xFFFFFF;

}  // namespace

float RandomSequence::Next() noexcept {
  state_ = (state_ * 0x43FD43FDU + 0xC39EC3U) & kStateMask;
  return Last();
}

float RandomSequence::Next(float number) noexcept {
  if (number == 0) {
    return Last();
  }
  if (number < 0) {
    const auto bits = std::bit_cast<std::uint32_t>(number);
    state_ = (bits + (bits >> 24)) & kStateMask;
  }
  return Next();
}

void RandomSequence::Reseed(double number) noexcept {
  const auto high = static_cast<std::uint32_t>(std::bit_cast<std::uint64_t>(number) >> 32);
  const std::uint32_t mixed = (high & 0xFFFF) ^ (high >> 16);
  state_ = (state_ & 0xFF) | mixed << 8;
}

float RandomSequence::Last() const noexcept {
  return static_cast<float>(state_) / static_cast<float>(kStateMask + 1);
}

}  // namespace scrivanta
