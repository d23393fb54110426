#include "text/WriteAll.h"

#include <cerrno>

#include "text/Bytes.h"

namespace scrivanta {

namespace {

// Some C libraries do not say why a disk has taken the first part only; they do when it takes nothing more.
std::error_code ReasonOfNextFailure(std::FILE* file) {
  errno = 0;
  const bool failed = std::fputc(0, file) == EOF || std::fflush(file) != 0;
  return failed && errno != 0 ? LastFileError() : std::make_error_code(std::errc::io_error);
}

}  // namespace

void WriteAll(std::FILE* file, std::string_view bytes, const std::filesystem::path& name) {
  errno = 0;
  if (std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size()) {
    return;
  }
  const bool isUnexplained = errno == 0 || errno == EINVAL;
  throw FileError(name, isUnexplained ? ReasonOfNextFailure(file) : LastFileError());
}

}  // namespace scrivanta
