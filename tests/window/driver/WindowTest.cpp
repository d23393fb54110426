#include "window/driver/WindowTest.h"

#include <windows.h>

namespace scrivanta {

namespace {

void ForgetSettings() {}

}  // namespace

WindowTest::WindowTest() {
  ForgetSettings();
}

}  // namespace scrivanta
