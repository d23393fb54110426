// Where runs of so many words stand in the joined keys.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "lines/duplicates/JoinedKeys.h"

namespace scrivanta {

// The hash of the last `length` words of a row, brought on word by word.
class RollingHash {
 public:
  explicit RollingHash(std::size_t length);
  void Push(std::uint64_t wordHash);
  std::uint64_t value() const;

 private:
  std::vector<std::uint64_t> window_;  // a ring
  std::size_t next_ = 0;
  std::uint64_t outFactor_ = 1;  // of the word that leaves the window
  std::uint64_t sum_ = 0;
};

class WordRunIndex {
 public:
  explicit WordRunIndex(std::size_t length) : length_(length), rolling_(length), runs_(kFirstSlots) {}

  std::size_t length() const noexcept { return length_; }
  // Whether more places had to be looked at than the number of words warrants: the runs are too frequent.
  bool IsOverworked() const noexcept { return credit_ < 0; }

  // Where in the bytes of the keys the line stands as a row of whole words. It has `length` words at least, whose
  // hashes are given.
  std::optional<std::size_t> Find(const JoinedKeys& keys, std::string_view line,
                                  std::span<const std::uint64_t> wordHashes);

 private:
  static constexpr std::uint32_t kNone = 0xFFFFFFFF;
  static constexpr std::size_t kFirstSlots = 1024;

  // All places of runs with the same hash: a chain from the latest to the first.
  struct Run {
    std::uint32_t hash = 0;
    std::uint32_t latest = kNone;  // the number of its first word; kNone: a free slot
    std::uint32_t count = 0;
  };

  void CatchUp(const JoinedKeys& keys);
  void AddRun(std::uint32_t hash, std::uint32_t word);
  void Grow();
  Run& SlotOf(std::uint32_t hash);

  std::size_t length_;
  RollingHash rolling_;
  std::size_t wordsSeen_ = 0;
  std::vector<Run> runs_;  // open addressing, a power of two
  std::size_t used_ = 0;
  std::vector<std::uint32_t> previous_;  // for every run by its first word: the one before it in the chain
  std::vector<std::uint32_t> asked_;     // hashes of the runs of a line
  long long credit_ = 1'000'000;
};

}  // namespace scrivanta
