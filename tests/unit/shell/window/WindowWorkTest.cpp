#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "shell/window/WindowWork.h"
#include "support/ScriptedWorkbench.h"

namespace scrivanta {
namespace {

using namespace std::chrono_literals;

class RecordingScreen final : public BusyScreen {
 public:
  void ShowHourglass(bool show) override { events.emplace_back(show ? "hourglass" : "arrow"); }
  void Lock() override { events.emplace_back("lock"); }
  void Unlock() override { events.emplace_back("unlock"); }
  void HandleEvents() override { ++handled; }
  bool IsStopRequested() const override { return stop; }
  void ShowPercent(int percent) override { events.push_back(std::to_string(percent) + "%"); }
  void OfferToStop() override { events.emplace_back("offer"); }

  std::vector<std::string> events;
  int handled = 0;
  bool stop = false;
};

class WindowWorkTest : public ::testing::Test {
 protected:
  RecordingScreen screen;
  testing::ManualClock clock;
  WindowWork::Time now;
  WindowWork work{screen, clock, [this] { return now; }};
};

TEST_F(WindowWorkTest, AShortWorkLeavesTheWindowAsItIs) {
  {
    const auto busy = work.Start();
    EXPECT_TRUE(work.IsBusy());
    now += 49ms;
    busy->progress().Report(1, 2);
  }
  EXPECT_FALSE(work.IsBusy());
  EXPECT_EQ(screen.events, (std::vector<std::string>{"hourglass", "arrow"}));
  EXPECT_EQ(screen.handled, 0);
}

TEST_F(WindowWorkTest, ALongWorkLocksTheWindowHandlesEventsAndOffersToStopOnce) {
  clock.now = std::chrono::local_time<std::chrono::milliseconds>{2s};
  {
    const auto busy = work.Start();
    for (int i = 0; i < 300; ++i) {
      now += 10ms;
      busy->progress().Report(0, 0);
    }
  }
  EXPECT_EQ(screen.events, (std::vector<std::string>{"hourglass", "lock", "offer", "unlock", "arrow"}));
  EXPECT_EQ(screen.handled, 60);
}

TEST_F(WindowWorkTest, IsInterruptedWhenTheUserAsks) {
  {
    const auto busy = work.Start();
    now += 10ms;
    screen.stop = true;
    EXPECT_NO_THROW(busy->progress().Report(1, 2));
    now += 50ms;
    EXPECT_THROW(busy->progress().Report(1, 2), Interrupted);
  }
  EXPECT_EQ(screen.events.back(), "arrow");
}

TEST_F(WindowWorkTest, NestedWorksAreOne) {
  clock.now = std::chrono::local_time<std::chrono::milliseconds>{2s};
  {
    const auto outer = work.Start();
    {
      const auto inner = work.Start();
      now += 60ms;
      inner->progress().Report(1, 2);
    }
    EXPECT_TRUE(work.IsBusy());
  }
  EXPECT_EQ(screen.events, (std::vector<std::string>{"hourglass", "lock", "unlock", "arrow"}));
}

TEST(PercentToShowTest, ChangesOnlyInSecondsThatFiveDivides) {
  const auto at = [](std::chrono::milliseconds time) {
    return PercentToShow(1, 3, std::chrono::local_time<std::chrono::milliseconds>{24h * 365 + time});
  };
  EXPECT_EQ(at(0s), 33);
  EXPECT_EQ(at(10s), 33);
  EXPECT_EQ(at(9500ms), 33);  // rounded to the nearer second
  EXPECT_EQ(at(9499ms), std::nullopt);
  EXPECT_EQ(at(10499ms), 33);
  EXPECT_EQ(at(10501ms), std::nullopt);
  EXPECT_EQ(at(12s), std::nullopt);
  EXPECT_EQ(PercentToShow(2, 3, {}), 67);
  EXPECT_EQ(PercentToShow(3, 3, {}), 100);
  EXPECT_EQ(PercentToShow(3, 0, {}), std::nullopt);
}

}  // namespace
}  // namespace scrivanta
