// How a long work tells how far it has come, and learns that it is to stop.
#pragma once

#include <cstdint>
#include <exception>

#include "text/Interface.h"

namespace scrivanta {

// Thrown out of Progress::Report when the user has stopped the work. What the work has written so far is thrown away
// by whoever called it; no handler between catches it.
class Interrupted : public std::exception {
 public:
  const char* what() const noexcept override { return "interrupted"; }
};

class Progress : public Interface {
 public:
  // Done and total are in any one unit; total is 0 while it is unknown. Called at least every few milliseconds of work
  // (a thousand lines or 64 KiB), from the thread that does it. Throws Interrupted.
  virtual void Report(std::uint64_t done, std::uint64_t total) = 0;
};

// For callers with nobody to tell and nothing to stop them.
class NoProgress final : public Progress {
 public:
  void Report(std::uint64_t, std::uint64_t) override {}
};

}  // namespace scrivanta
