#pragma once

#include "text/Progress.h"

namespace scrivanta {

// Tells how many of the files are done, whatever is reported while one of them is worked on.
class FileProgress final : public Progress {
 public:
  FileProgress(Progress& progress, std::uint64_t files) : progress_(progress), files_(files) {}

  void Report(std::uint64_t, std::uint64_t) override { progress_.Report(done_, files_); }
  void FileDone() { progress_.Report(++done_, files_); }

 private:
  Progress& progress_;
  std::uint64_t files_;
  std::uint64_t done_ = 0;
};

}  // namespace scrivanta
