// Reports a loop over lines every so many of them.
#pragma once

#include <cstdint>

#include "text/Progress.h"

namespace scrivanta {

class PacedProgress {
 public:
  // A total of 0: unknown.
  PacedProgress(Progress& progress, std::uint64_t total) : progress_(progress), total_(total) {}

  // One line more. Throws Interrupted.
  void Step() {
    if (done_++ % kLinesBetweenReports == 0) {
      progress_.Report(done_, total_);
    }
  }

 private:
  static constexpr std::uint64_t kLinesBetweenReports = 1024;

  Progress& progress_;
  std::uint64_t total_;
  std::uint64_t done_ = 0;
};

}  // namespace scrivanta
