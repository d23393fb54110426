#include "lines/duplicates/KeyIndex.h"

#include <algorithm>
#include <optional>

#include "lines/duplicates/ByteHash.h"

namespace scrivanta {

namespace {

// More would help only texts that were made to be difficult, and each costs memory.
constexpr std::size_t kMostIndices = 8;

constexpr std::size_t kFairTrial = 1000;  // lines until the pairs may be found to tell little

}  // namespace

bool KeyIndex::ContainsOrAdd(std::string_view line) {
  // A line of one word is found by the index alone just as fast.
  const bool isOneWord = line.find(' ') == std::string_view::npos;
  const std::uint64_t hash = HashBytes(line);
  if (!isOneWord) {
    lines_.Prefetch(hash);
  }
  HashWords(line);
  if (!isOneWord && lines_.Contains(keys_, line, hash)) {
    return true;
  }
  const std::optional<std::size_t> found = Find(line);
  const std::size_t place = found ? *found : keys_.Add(line);
  if (!found && pairs_) {
    pairs_->Add(keys_.bytes());
  }
  if (!isOneWord) {
    lines_.Add(place, line.size(), hash);
  }
  return found.has_value();
}

// Where the words of the line stand in the joined keys.
std::optional<std::size_t> KeyIndex::Find(std::string_view line) {
  if (pairs_) {
    ++asked_;
    pairs_->Ask(wordHashes_);
    if (!pairs_->MayContain()) {
      return std::nullopt;
    }
  }
  keys_.NumberWords();
  const std::optional<std::size_t> found = IndexForWords(wordHashes_.size()).Find(keys_, line, wordHashes_);
  falseAlarms_ += found ? 0 : 1;
  if (asked_ > kFairTrial && falseAlarms_ > asked_ / 2) {
    pairs_.reset();
  }
  return found;
}

void KeyIndex::HashWords(std::string_view line) {
  wordHashes_.clear();
  for (std::size_t begin = 0;;) {
    const std::size_t space = line.find(' ', begin);
    wordHashes_.push_back(HashBytes(line.substr(begin, space - begin)));
    if (space == std::string_view::npos) {
      return;
    }
    begin = space + 1;
  }
}

// The index with the longest runs that a line of so many words has; one with longer runs when that is overworked.
WordRunIndex& KeyIndex::IndexForWords(std::size_t count) {
  auto next = indices_.upper_bound(count);
  if (next == indices_.begin()) {
    return indices_.try_emplace(1, 1).first->second;
  }
  WordRunIndex& longest = std::prev(next)->second;
  if (!longest.IsOverworked() || longest.length() == count || indices_.size() == kMostIndices) {
    return longest;
  }
  const std::size_t length = std::min(count, longest.length() + std::max<std::size_t>(1, longest.length() / 2));
  return indices_.try_emplace(length, length).first->second;
}

}  // namespace scrivanta
