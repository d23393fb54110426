// How the driver waits: for a condition, with a limit, never for a time. What does not come true fails the test with an
// account of what was waited for, of the windows that were there and with a picture of the screen.
#pragma once

#include <chrono>
#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>

namespace scrivanta {

// Ends a test: what the program shows is not what the test says.
class DriverFailure : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Long enough for a busy machine; a test that passes never waits that long.
inline constexpr std::chrono::seconds kWaitLimit{30};

// `what` completes the sentence "waited for ...". Throws DriverFailure.
void WaitUntil(const std::string& what, const std::function<bool()>& condition,
               std::chrono::milliseconds limit = kWaitLimit);

// Waits until `find` returns something that is true (a window, a filled optional) and returns that.
template <typename Find>
auto WaitFor(const std::string& what, Find find, std::chrono::milliseconds limit = kWaitLimit) {
  decltype(find()) found{};
  WaitUntil(
      what, [&] { return static_cast<bool>(found = find()); }, limit);
  return found;
}

// Waits until what is shown is what is expected; the failure sets both beside each other.
void ExpectShown(const std::string& what, std::u16string_view expected, const std::function<std::u16string()>& shown);

// Throws DriverFailure with the message, the windows that are there, and where the picture of the screen lies.
[[noreturn]] void FailWithPicture(const std::string& message);

}  // namespace scrivanta
