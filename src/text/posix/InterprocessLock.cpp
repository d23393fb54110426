#include "text/InterprocessLock.h"

#include <cerrno>
#include <filesystem>
#include <string>
#include <system_error>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace scrivanta {

struct InterprocessLock::Handle {
  explicit Handle(int fileDescriptor) : descriptor(fileDescriptor) {}
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;
  ~Handle() {
    if (descriptor >= 0) {
      close(descriptor);
    }
  }

  int descriptor;
};

InterprocessLock::InterprocessLock(std::string_view name) {
  const std::string fileName = "scrivanta-" + std::to_string(getuid()) + "-" + std::string(name) + ".lock";
  const std::filesystem::path path = std::filesystem::temp_directory_path() / fileName;
  handle_ = std::make_unique<Handle>(open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600));
  int result = handle_->descriptor < 0 ? -1 : flock(handle_->descriptor, LOCK_EX);
  while (result != 0 && errno == EINTR) {
    result = flock(handle_->descriptor, LOCK_EX);
  }
  if (result != 0) {
    throw std::system_error(errno, std::generic_category(), path);
  }
}

InterprocessLock::~InterprocessLock() = default;

}  // namespace scrivanta
