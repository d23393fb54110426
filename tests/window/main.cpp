#include <windows.h>

#include <gtest/gtest.h>

int wmain(int argc, wchar_t** argv) {
  // So that what tests print arrives as it is written.
  SetConsoleOutputCP(CP_UTF8);
  ::testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
