#include "lines/duplicates/WordPairFilter.h"

#include <algorithm>

#include "lines/duplicates/ByteHash.h"

namespace scrivanta {

namespace {

constexpr std::size_t kPairsOfABlock = 4;  // sixteen bits a pair: one in a hundred is taken for another
constexpr std::size_t kBytesOfAPair = 4;   // what words with their spaces are guessed to have
constexpr std::size_t kFewestBlocks = 1024;
constexpr std::uint64_t kFactor = 0x9E3779B97F4A7C15U;

std::uint64_t PairOf(std::uint64_t first, std::uint64_t second) {
  const std::uint64_t pair = (first * kFactor + second) * kFactor;
  return pair ^ (pair >> 29U);
}

std::size_t BlockOf(std::uint64_t pair, std::size_t blocks) {
  return static_cast<std::size_t>(((pair >> 32U) * blocks) >> 32U);
}

std::uint64_t BitsOf(std::uint64_t pair) {
  const auto bit = [pair](unsigned place) { return std::uint64_t{1} << ((pair >> place) & 63U); };
  return bit(0) | bit(6) | bit(12) | bit(18);
}

std::uint64_t HashOfNothing() {
  static const std::uint64_t hash = HashBytes({});
  return hash;
}

}  // namespace

WordPairFilter::WordPairFilter(std::uint64_t expectedBytes)
    : blocks_(std::max(kFewestBlocks, static_cast<std::size_t>(expectedBytes) / kBytesOfAPair / kPairsOfABlock)) {}

void WordPairFilter::Ask(std::span<const std::uint64_t> wordHashes) {
  asked_.clear();
  for (std::size_t i = 1; i < wordHashes.size(); ++i) {
    asked_.push_back(PairOf(wordHashes[i - 1], wordHashes[i]));
    Prefetch(asked_.back());
  }
  first_ = wordHashes.front();
  last_ = wordHashes.back();
  Prefetch(PairOf(HashOfNothing(), first_));
  Prefetch(PairOf(last_, HashOfNothing()));
}

bool WordPairFilter::MayContain() const {
  return std::ranges::all_of(asked_, [this](std::uint64_t pair) {
    const std::uint64_t bits = BitsOf(pair);
    return (blocks_[BlockOf(pair, blocks_.size())] & bits) == bits;
  });
}

void WordPairFilter::Add(std::string_view joinedKeys) {
  if (used_ + asked_.size() + 2 > blocks_.size() * kPairsOfABlock) {
    Grow(joinedKeys);
    return;
  }
  if (!isEmpty_) {
    AddPair(PairOf(lastAdded_, HashOfNothing()));
    AddPair(PairOf(HashOfNothing(), first_));
  }
  std::ranges::for_each(asked_, [this](std::uint64_t pair) { AddPair(pair); });
  lastAdded_ = last_;
  isEmpty_ = false;
}

// Asks the memory for what Add, or that of the next line, will need.
void WordPairFilter::Prefetch(std::uint64_t pair) const {
  __builtin_prefetch(&blocks_[BlockOf(pair, blocks_.size())]);
}

void WordPairFilter::AddPair(std::uint64_t pair) {
  blocks_[BlockOf(pair, blocks_.size())] |= BitsOf(pair);
  ++used_;
}

// Twice as large, and of all that stands in the joined keys.
void WordPairFilter::Grow(std::string_view joinedKeys) {
  blocks_.assign(blocks_.size() * 2, 0);
  used_ = 0;
  std::uint64_t last = 0;
  for (std::size_t begin = 1; begin < joinedKeys.size();) {
    const std::size_t end = joinedKeys.find(' ', begin);
    const std::uint64_t word = HashBytes(joinedKeys.substr(begin, end - begin));
    if (begin > 1) {
      AddPair(PairOf(last, word));
    }
    last = word;
    begin = end + 1;
  }
  lastAdded_ = last;
  isEmpty_ = false;
}

}  // namespace scrivanta
