#include "shell/window/WindowWork.h"

#include <cmath>

namespace scrivanta {

namespace {

constexpr std::chrono::milliseconds kEventInterval{50};
constexpr std::chrono::seconds kPatience{1};
constexpr int kShownEverySeconds = 5;

}  // namespace

std::optional<int> PercentToShow(std::uint64_t done, std::uint64_t total,
                                 std::chrono::local_time<std::chrono::milliseconds> now) {
  const auto second = std::chrono::round<std::chrono::seconds>(now - std::chrono::floor<std::chrono::days>(now));
  if (total == 0 || second.count() % kShownEverySeconds != 0) {
    return std::nullopt;
  }
  return static_cast<int>(std::lround(100.0 * static_cast<double>(done) / static_cast<double>(total)));
}

class WindowWork::Work final : public BusyWork, private Progress {
 public:
  explicit Work(WindowWork& window) : window_(window) { window_.Begin(); }
  ~Work() override { window_.End(); }

  Progress& progress() override { return *this; }

 private:
  void Report(std::uint64_t done, std::uint64_t total) override { window_.Report(done, total); }

  WindowWork& window_;
};

WindowWork::WindowWork(BusyScreen& screen, const Clock& clock, std::function<Time()> now)
    : screen_(screen), clock_(clock), now_(std::move(now)) {}

std::unique_ptr<BusyWork> WindowWork::Start() {
  return std::make_unique<Work>(*this);
}

void WindowWork::Begin() {
  if (depth_++ == 0) {
    isLocked_ = false;
    isStopOffered_ = false;
    start_ = now_();
    lastEvents_ = start_;
    screen_.ShowHourglass(true);
  }
}

void WindowWork::End() {
  if (--depth_ == 0) {
    if (isLocked_) {
      screen_.Unlock();
    }
    screen_.ShowHourglass(false);
  }
}

void WindowWork::Report(std::uint64_t done, std::uint64_t total) {
  const Time now = now_();
  if (now - lastEvents_ < kEventInterval) {
    return;
  }
  // A work that ends before the first events are handled leaves the window as it is: nothing flickers.
  if (!isLocked_) {
    screen_.Lock();
    isLocked_ = true;
  }
  if (const std::optional<int> percent = PercentToShow(done, total, clock_.Now())) {
    screen_.ShowPercent(*percent);
  }
  if (!isStopOffered_ && now - start_ >= kPatience) {
    screen_.OfferToStop();
    isStopOffered_ = true;
  }
  screen_.HandleEvents();
  lastEvents_ = now_();
  if (screen_.IsStopRequested()) {
    throw Interrupted();
  }
}

}  // namespace scrivanta
