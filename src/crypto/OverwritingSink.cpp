#include "crypto/OverwritingSink.h"

#include <cerrno>

#include "text/PlatformFile.h"

namespace scrivanta {

namespace {

std::error_code LastError() {
  return {errno, std::generic_category()};
}

}  // namespace

OverwritingSink::OverwritingSink(const std::filesystem::path& path)
    : path_(path), file_(OpenFile(path, OpenMode::kUpdate)) {
  if (!file_ && errno == ENOENT) {
    file_.reset(OpenFile(path, OpenMode::kCreate));
  }
  if (!file_) {
    throw FileError(path, LastError());
  }
}

void OverwritingSink::Write(std::string_view bytes) {
  if (std::fwrite(bytes.data(), 1, bytes.size(), file_.get()) != bytes.size()) {
    throw FileError(path_, LastError());
  }
}

void OverwritingSink::Close() {
  if (std::fclose(file_.release()) != 0) {
    throw FileError(path_, LastError());
  }
}

}  // namespace scrivanta
