// The rows of a second table that are partners of keys of the first, as far as they are held at a time.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace scrivanta {

class PartnersByKey {
 public:
  static constexpr std::uint32_t kNone = 0xFFFFFFFF;
  // What a row takes beside its text.
  static constexpr std::size_t kBytesOfRow = sizeof(std::size_t) + sizeof(std::uint32_t);

  // Keys are numbers below the count.
  explicit PartnersByKey(std::size_t keys) : ends_(keys) {}

  void Add(std::uint32_t key, std::string_view tail) {
    const auto row = static_cast<std::uint32_t>(next_.size());
    Ends& ends = ends_[key];
    (ends.first == kNone ? ends.first : next_[ends.last]) = row;
    ends.last = row;
    next_.push_back(kNone);
    tails_.append(tail);
    tailEnds_.push_back(tails_.size());
  }

  // Forgets all rows.
  void Clear() {
    ends_.assign(ends_.size(), Ends());
    next_.clear();
    tails_.clear();
    tailEnds_.clear();
  }

  std::uint32_t FirstRow(std::uint32_t key) const { return ends_[key].first; }
  // The next row of the same key, kNone at the last.
  std::uint32_t NextRow(std::uint32_t row) const { return next_[row]; }
  std::string_view Tail(std::uint32_t row) const {
    const std::size_t begin = row == 0 ? 0 : tailEnds_[row - 1];
    return std::string_view(tails_).substr(begin, tailEnds_[row] - begin);
  }
  // Of the texts and of what they take beside them.
  std::size_t bytes() const noexcept { return tails_.size() + next_.size() * kBytesOfRow; }

 private:
  struct Ends {
    std::uint32_t first = kNone;
    std::uint32_t last = kNone;
  };

  std::vector<Ends> ends_;           // by key
  std::vector<std::uint32_t> next_;  // by row
  std::string tails_;
  std::vector<std::size_t> tailEnds_;
};

}  // namespace scrivanta
