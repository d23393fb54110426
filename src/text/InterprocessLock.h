// One at a time among all processes of a user. Implemented in text/posix/ and in win/.
#pragma once

#include <memory>
#include <string_view>

namespace scrivanta {

class InterprocessLock {
 public:
  // Waits until nobody else, thread or process, holds the lock of this name (letters and digits). A process that has
  // died no longer holds it. Throws std::system_error.
  explicit InterprocessLock(std::string_view name);
  ~InterprocessLock();
  InterprocessLock(const InterprocessLock&) = delete;
  InterprocessLock& operator=(const InterprocessLock&) = delete;

 private:
  struct Handle;
  std::unique_ptr<Handle> handle_;
};

}  // namespace scrivanta
