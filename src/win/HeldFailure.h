// An exception must not fly through the system's code. A function that the system calls back holds it here, and whoever
// has called the system throws it on.
#pragma once

#include <exception>
#include <utility>

namespace scrivanta {

class HeldFailure {
 public:
  // Runs the action unless an earlier one has failed. Returns whether all is well.
  template <typename Action>
  bool Hold(Action&& action) noexcept {
    if (!failure_) {
      try {
        std::forward<Action>(action)();
      } catch (...) {
        failure_ = std::current_exception();
      }
    }
    return !failure_;
  }

  // Throws what is held, if anything is.
  void Rethrow() {
    if (failure_) {
      std::rethrow_exception(std::exchange(failure_, nullptr));
    }
  }

 private:
  std::exception_ptr failure_;
};

}  // namespace scrivanta
