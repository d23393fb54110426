// A disk that is full: while one lives, no file of this process grows beyond so many bytes.
#pragma once

#include <csignal>

#include <sys/resource.h>

namespace scrivanta::testing {

class FileSizeLimit {
 public:
  explicit FileSizeLimit(rlim_t bytes) : oldHandler_(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &before_);
    rlimit limit = before_;
    limit.rlim_cur = bytes;
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  FileSizeLimit(const FileSizeLimit&) = delete;
  FileSizeLimit& operator=(const FileSizeLimit&) = delete;
  ~FileSizeLimit() {
    setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, oldHandler_);
  }

 private:
  rlimit before_ = {};
  void (*oldHandler_)(int);
};

}  // namespace scrivanta::testing
