#include "window/driver/Wait.h"

#include <windows.h>

#include "window/driver/Screenshot.h"
#include "window/driver/WindowProbe.h"

namespace scrivanta {

namespace {

constexpr DWORD kPollMilliseconds = 5;

}  // namespace

void WaitUntil(const std::string& what, const std::function<bool()>& condition, std::chrono::milliseconds limit) {
  const auto end = std::chrono::steady_clock::now() + limit;
  while (!condition()) {
    if (std::chrono::steady_clock::now() > end) {
      FailWithPicture("waited for " + what);
    }
    Sleep(kPollMilliseconds);
  }
}

void ExpectShown(const std::string& what, std::u16string_view expected, const std::function<std::u16string()>& shown) {
  try {
    WaitUntil(what, [&] { return shown() == expected; });
  } catch (const DriverFailure& failure) {
    throw DriverFailure(what + "\n  expected: " + Shown(expected) + "\n  shown:    " + Shown(shown()) + "\n" +
                        failure.what());
  }
}

void FailWithPicture(const std::string& message) {
  throw DriverFailure(message + "\n" + DescribeWindows() + "picture: " + TakeFailureScreenshot());
}

}  // namespace scrivanta
