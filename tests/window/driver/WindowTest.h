// What every window test has: a folder of its own, settings that nobody has written yet, nothing left behind by
// a program that was killed, and the program.
#pragma once

#include <gtest/gtest.h>

#include "window/driver/App.h"
#include "window/driver/TestFiles.h"

namespace scrivanta {

class WindowTest : public ::testing::Test {
 protected:
  WindowTest();

  TestFolder folder;
  App app;
};

}  // namespace scrivanta
