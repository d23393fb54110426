#include "batch/TerminalProgress.h"

#include <algorithm>
#include <string>

namespace scrivanta {

namespace {

constexpr std::chrono::milliseconds kBeforeFirst{300};  // a short work shows no bar
constexpr std::chrono::milliseconds kBetween{100};
constexpr std::size_t kBarWidth = 40;

std::string BarText(std::uint64_t done, std::uint64_t total) {
  if (total == 0) {
    return std::to_string(done / 1'000'000) + " MB";
  }
  const double share = std::min(1.0, static_cast<double>(done) / static_cast<double>(total));
  const auto filled = static_cast<std::size_t>(share * static_cast<double>(kBarWidth));
  return "[" + std::string(filled, '#') + std::string(kBarWidth - filled, ' ') + "] " +
         std::to_string(static_cast<int>(share * 100)) + "%";
}

}  // namespace

TerminalProgress::TerminalProgress(std::ostream& terminal, bool bar, const std::atomic<bool>& interrupted)
    : terminal_(terminal),
      bar_(bar),
      interrupted_(interrupted),
      nextDrawing_(std::chrono::steady_clock::now() + kBeforeFirst) {}

TerminalProgress::~TerminalProgress() {
  if (drawn_ > 0) {
    terminal_ << '\r' << std::string(drawn_, ' ') << '\r' << std::flush;
  }
}

void TerminalProgress::Report(std::uint64_t done, std::uint64_t total) {
  if (interrupted_) {
    throw Interrupted();
  }
  if (bar_ && std::chrono::steady_clock::now() >= nextDrawing_) {
    Draw(done, total);
  }
}

void TerminalProgress::Draw(std::uint64_t done, std::uint64_t total) {
  const std::string text = BarText(done, total);
  terminal_ << '\r' << text << std::string(drawn_ > text.size() ? drawn_ - text.size() : 0, ' ') << std::flush;
  drawn_ = std::max(drawn_, text.size());
  nextDrawing_ = std::chrono::steady_clock::now() + kBetween;
}

}  // namespace scrivanta
