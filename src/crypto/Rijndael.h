// The Rijndael block cipher as FIPS-197 standardises it: blocks of 16 bytes, keys of 128, 192 or 256 bits, each block
// by itself. What stands on top of it (byte arrays, files, text) is in cRijndael.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace scrivanta {

inline constexpr std::size_t kRijndaelBlockSize = 16;  // bytes

// The round keys of one cipher key. A word holds one column of the state, its first byte in the lowest bits, so on a
// processor of that byte order the words lie in memory as the standard numbers the bytes.
class RijndaelKey {
 public:
  using Schedule = std::array<std::uint32_t, 60>;

  // Uses the first keyBits / 8 bytes of the key. Throws std::invalid_argument when keyBits is not 128, 192 or 256, or
  // when the key is shorter than that.
  RijndaelKey(std::span<const std::uint8_t> key, int keyBits);

  // 10, 12 or 14; the schedules hold four words more than four times as many.
  std::size_t rounds() const noexcept { return rounds_; }
  const Schedule& encryption() const noexcept { return encryption_; }
  // For the equivalent inverse cipher: in the order of decrypting, all but the first and last with the inverse
  // MixColumns applied.
  const Schedule& decryption() const noexcept { return decryption_; }

 private:
  void Expand(std::span<const std::uint8_t> key, std::size_t keyWords);
  void Invert();

  std::size_t rounds_ = 0;
  Schedule encryption_{};
  Schedule decryption_{};
};

// One way of computing the cipher. Both functions work on whole blocks, output as long as input; the two may be the
// same memory, but must not overlap otherwise.
struct RijndaelForm {
  using Function = void (*)(const RijndaelKey& key, std::span<const std::uint8_t> input,
                            std::span<std::uint8_t> output);
  Function encrypt;
  Function decrypt;
};

// With tables that unite SubBytes, ShiftRows and MixColumns: runs anywhere.
const RijndaelForm& RijndaelTables();
// With the processor's AES instructions; null where it has none.
const RijndaelForm* RijndaelInstructions();
const RijndaelForm& FastestRijndael();

}  // namespace scrivanta
