#include "lines/duplicates/WordRunIndex.h"

#include <algorithm>

#include "lines/duplicates/ByteHash.h"

namespace scrivanta {

namespace {

constexpr std::uint64_t kBase = 0x2545F4914F6CDD1DU;
constexpr long long kCreditOfAWord = 4;

}  // namespace

RollingHash::RollingHash(std::size_t length) : window_(length) {
  for (std::size_t i = 0; i < length; ++i) {
    outFactor_ *= kBase;
  }
}

void RollingHash::Push(std::uint64_t wordHash) {
  sum_ = sum_ * kBase + wordHash - window_[next_] * outFactor_;
  window_[next_] = wordHash;
  next_ = next_ + 1 == window_.size() ? 0 : next_ + 1;
}

std::uint64_t RollingHash::value() const {
  return (sum_ ^ (sum_ >> 29U)) * kBase;
}

std::optional<std::size_t> WordRunIndex::Find(const JoinedKeys& keys, std::string_view line,
                                              std::span<const std::uint64_t> wordHashes) {
  CatchUp(keys);
  asked_.clear();
  RollingHash rolling(length_);
  for (std::size_t i = 0; i < wordHashes.size(); ++i) {
    rolling.Push(wordHashes[i]);
    if (i + 1 >= length_) {
      asked_.push_back(static_cast<std::uint32_t>(rolling.value() >> 32U));
      __builtin_prefetch(&runs_[asked_.back() & (runs_.size() - 1)]);
    }
  }
  const Run* rarest = nullptr;
  std::size_t offset = 0;  // of the rarest run in the line, in words
  for (std::size_t i = 0; i < asked_.size(); ++i) {
    const Run& run = SlotOf(asked_[i]);
    if (run.latest == kNone) {
      return std::nullopt;
    }
    if (rarest == nullptr || run.count < rarest->count) {
      rarest = &run;
      offset = i;
    }
  }
  for (std::uint32_t word = rarest->latest; word != kNone; word = previous_[word]) {
    --credit_;
    if (word >= offset && keys.HasAt(keys.WordBegin(word - offset), line)) {
      return keys.WordBegin(word - offset);
    }
  }
  return std::nullopt;
}

void WordRunIndex::CatchUp(const JoinedKeys& keys) {
  for (; wordsSeen_ < keys.wordCount(); ++wordsSeen_) {
    rolling_.Push(HashBytes(keys.Word(wordsSeen_)));
    if (wordsSeen_ + 1 >= length_) {
      AddRun(static_cast<std::uint32_t>(rolling_.value() >> 32U), static_cast<std::uint32_t>(previous_.size()));
      credit_ += kCreditOfAWord;
    }
  }
}

void WordRunIndex::AddRun(std::uint32_t hash, std::uint32_t word) {
  if ((used_ + 1) * 4 > runs_.size() * 3) {
    Grow();
  }
  Run& run = SlotOf(hash);
  used_ += run.latest == kNone ? 1 : 0;
  previous_.push_back(run.latest);
  run = {hash, word, run.count + 1};
}

void WordRunIndex::Grow() {
  std::vector<Run> old(runs_.size() * 2);
  old.swap(runs_);
  for (const Run& run : old) {
    if (run.latest != kNone) {
      SlotOf(run.hash) = run;
    }
  }
}

WordRunIndex::Run& WordRunIndex::SlotOf(std::uint32_t hash) {
  const std::size_t mask = runs_.size() - 1;
  std::size_t slot = hash & mask;
  while (runs_[slot].latest != kNone && runs_[slot].hash != hash) {
    slot = (slot + 1) & mask;
  }
  return runs_[slot];
}

}  // namespace scrivanta
