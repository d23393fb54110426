// Progress on a terminal: a bar that is drawn over itself, and the interrupt key.
#pragma once

#include <atomic>
#include <chrono>
#include <ostream>

#include "text/Progress.h"

namespace scrivanta {

class TerminalProgress final : public Progress {
 public:
  // Draws nothing when bar is false. Report throws Interrupted once interrupted is set.
  TerminalProgress(std::ostream& terminal, bool bar, const std::atomic<bool>& interrupted);
  ~TerminalProgress() override;

  void Report(std::uint64_t done, std::uint64_t total) override;

 private:
  void Draw(std::uint64_t done, std::uint64_t total);

  std::ostream& terminal_;
  bool bar_;
  const std::atomic<bool>& interrupted_;
  std::chrono::steady_clock::time_point nextDrawing_;
  std::size_t drawn_ = 0;  // characters that stand on the terminal
};

}  // namespace scrivanta
