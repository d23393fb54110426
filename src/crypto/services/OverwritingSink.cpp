#include "crypto/services/OverwritingSink.h"

#include <cerrno>

#include "text/PlatformFile.h"
#include "text/WriteAll.h"

namespace scrivanta {

OverwritingSink::OverwritingSink(const std::filesystem::path& path)
    : path_(path), file_(OpenFile(path, OpenMode::kUpdate)) {
  if (!file_ && errno == ENOENT) {
    file_.reset(OpenFile(path, OpenMode::kCreate));
  }
  if (!file_) {
    throw FileError(path, LastFileError());
  }
}

void OverwritingSink::Write(std::string_view bytes) {
  WriteAll(file_.get(), bytes, path_);
}

void OverwritingSink::Close() {
  if (std::fclose(file_.release()) != 0) {
    throw FileError(path_, LastFileError());
  }
}

}  // namespace scrivanta
