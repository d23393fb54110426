// The list of matches that RegExpExecute gives.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace scrivanta {

struct MatchRec {
  std::int32_t FirstIndex = 0;  // where the match begins, in characters from 0
  std::int32_t Length = 0;      // in characters
  std::u16string Value;
};

// Records count from 1. A list without a match is not empty: it holds one empty record (offset 0, length 0, no text).
// An empty match at the very beginning looks the same; found() tells the two apart.
class MatchList {
 public:
  void Add(MatchRec match) {
    if (!found_) {
      records_.clear();
      found_ = true;
    }
    records_.push_back(std::move(match));
  }

  bool found() const noexcept { return found_; }
  // The number of the last record; 1 at least.
  std::size_t upperBound() const noexcept { return records_.size(); }
  // The record of that number, from 1. Throws std::out_of_range.
  const MatchRec& operator[](std::size_t number) const { return records_.at(number - 1); }

 private:
  std::vector<MatchRec> records_ = std::vector<MatchRec>(1);
  bool found_ = false;
};

}  // namespace scrivanta
