#pragma once

#include <span>

namespace scrivanta {

// Every step-th character from first to last has its upper case at this distance.
struct UpperCaseRun {
  char16_t first;
  char16_t last;
  int step;
  int distance;
};

std::span<const UpperCaseRun> UpperCaseRuns() noexcept;

}  // namespace scrivanta
