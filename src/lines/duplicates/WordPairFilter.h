// Whether the words of a line may stand in a row in the joined keys, told by its pairs of neighbours alone.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace scrivanta {

// A Bloom filter of blocks of 64 bits. Most lines of a text have a pair of words that no line had before: they need no
// look at any place.
class WordPairFilter {
 public:
  // The bytes of all lines to come, as far as they can be known.
  explicit WordPairFilter(std::uint64_t expectedBytes);

  // Remembers the pairs of a line, whose words have these hashes, for MayContain and Add.
  void Ask(std::span<const std::uint64_t> wordHashes);
  // False only when a pair of the line asked for was never added. A line of one word may always be contained.
  bool MayContain() const;
  // Adds the pairs of the line asked for, which the joined keys hold now, and those with the empty word before it.
  void Add(std::string_view joinedKeys);

 private:
  void Prefetch(std::uint64_t pair) const;
  void AddPair(std::uint64_t pair);
  void Grow(std::string_view joinedKeys);

  std::vector<std::uint64_t> blocks_;
  std::size_t used_ = 0;
  std::vector<std::uint64_t> asked_;  // the pairs of a line
  std::uint64_t first_ = 0;           // its words at the ends
  std::uint64_t last_ = 0;
  std::uint64_t lastAdded_ = 0;
  bool isEmpty_ = true;
};

}  // namespace scrivanta
