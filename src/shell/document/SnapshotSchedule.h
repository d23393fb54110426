// When a snapshot of a changed document is due: in a pause of the typing when there is one, but never so late that more
// than ten seconds of work could be lost.
#pragma once

#include <chrono>
#include <optional>

namespace scrivanta {

class SnapshotSchedule {
 public:
  using Time = std::chrono::steady_clock::time_point;

  // Two of the ten seconds are left to the writing.
  static constexpr std::chrono::seconds kLeast{5};  // since the first change that is in no snapshot
  static constexpr std::chrono::seconds kMost{8};
  static constexpr std::chrono::milliseconds kPause{500};

  void NoteChange(Time now) {
    first_ = first_.value_or(now);
    last_ = now;
  }
  // The snapshot holds all changes up to now, or there is nothing to keep any more.
  void NoteTaken() noexcept { first_.reset(); }

  bool IsPending() const noexcept { return first_.has_value(); }
  bool IsDue(Time now) const {
    return first_ && (now - *first_ >= kMost || (now - *first_ >= kLeast && now - last_ >= kPause));
  }

 private:
  std::optional<Time> first_;
  Time last_;
};

}  // namespace scrivanta
