// What happens to the window while a command works: when events are handled, when the first status panel shows how far
// the work has come, when the interrupt window appears. The window itself is behind BusyScreen.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

#include "shell/workbench/Workbench.h"
#include "text/Interface.h"

namespace scrivanta {

class BusyScreen : public Interface {
 public:
  virtual void ShowHourglass(bool show) = 0;
  // Disables menu, edit box and dialogs, so that events can be handled; and enables them again.
  virtual void Lock() = 0;
  virtual void Unlock() = 0;
  virtual void HandleEvents() = 0;
  // Whether the user has asked to stop since the work began.
  virtual bool IsStopRequested() const = 0;
  virtual void ShowPercent(int percent) = 0;
  // Shows the interrupt window.
  virtual void OfferToStop() = 0;
};

// The percentage to show, nothing at the moments when what is shown stays: the display changes only in seconds of the
// day that can be divided by five, so that it costs no time to speak of.
std::optional<int> PercentToShow(std::uint64_t done, std::uint64_t total,
                                 std::chrono::local_time<std::chrono::milliseconds> now);

class WindowWork {
 public:
  using Time = std::chrono::steady_clock::time_point;

  WindowWork(BusyScreen& screen, const Clock& clock, std::function<Time()> now = &std::chrono::steady_clock::now);

  // Works may be nested: the window is busy until the last one ends.
  std::unique_ptr<BusyWork> Start();
  bool IsBusy() const noexcept { return depth_ > 0; }

 private:
  class Work;

  void Begin();
  void End();
  void Report(std::uint64_t done, std::uint64_t total);

  BusyScreen& screen_;
  const Clock& clock_;
  std::function<Time()> now_;
  int depth_ = 0;
  bool isLocked_ = false;
  bool isStopOffered_ = false;
  Time start_;
  Time lastEvents_;
};

}  // namespace scrivanta
