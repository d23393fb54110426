#include "window/driver/WindowTest.h"

#include "window/driver/FirstRun.h"

namespace scrivanta {

WindowTest::WindowTest() {
  ForgetEarlierRuns();
}

}  // namespace scrivanta
