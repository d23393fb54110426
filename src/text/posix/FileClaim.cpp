#include "text/FileClaim.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace scrivanta {

struct FileClaim::Handle {
  Handle(std::filesystem::path filePath, int fileDescriptor) : path(std::move(filePath)), descriptor(fileDescriptor) {}
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;
  ~Handle() { close(descriptor); }

  std::filesystem::path path;
  int descriptor;
};

FileClaim::FileClaim(std::unique_ptr<Handle> handle) : handle_(std::move(handle)) {}

FileClaim::~FileClaim() {
  unlink(handle_->path.c_str());
}

std::unique_ptr<FileClaim> FileClaim::Take(const std::filesystem::path& path) {
  for (;;) {
    const int descriptor = open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, S_IRUSR | S_IWUSR);
    if (descriptor < 0) {
      return nullptr;
    }
    auto handle = std::make_unique<Handle>(path, descriptor);
    struct stat status = {};
    if (flock(descriptor, LOCK_EX | LOCK_NB) != 0 || fstat(descriptor, &status) != 0) {
      return nullptr;
    }
    // One that was removed by its holder between the two calls is nobody's any more, and not the file of this name.
    if (status.st_nlink > 0) {
      return std::make_unique<FileClaim>(std::move(handle));
    }
  }
}

}  // namespace scrivanta
