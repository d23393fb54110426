// A 24-bit linear congruential generator whose state can be reset and stirred by numbers. It is no source of secrets:
// the light cipher is built on it because its files are.
//
// The state s is 0x50000 at first. A step makes it s * 0x43FD43FD + 0xC39EC3 modulo 2^24, and the number drawn is
// s / 2^24. The first three of a new sequence: 11837123, 8949370, 9722709, each over 2^24.
#pragma once

#include <cstdint>

namespace scrivanta {

class RandomSequence {
 public:
  // The next number, in [0, 1). All 24 bits of it are exact in single precision.
  float Next() noexcept;
  // A negative number restarts the sequence at a place that the number alone decides; 0 gives the last number again; a
  // positive one is the same as none.
  float Next(float number) noexcept;
  // Puts bits of the number, as double precision has it, in the place of all but the lowest eight bits of the state.
  void Reseed(double number) noexcept;

 private:
  float Last() const noexcept;

  std::uint32_t state_ = 0x50000;
};

}  // namespace scrivanta
