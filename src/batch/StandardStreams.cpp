#include "batch/StandardStreams.h"

#include <cerrno>

namespace scrivanta {

namespace {

std::error_code LastError() {
  return {errno, std::generic_category()};
}

}  // namespace

std::size_t StandardInput::Read(std::span<char> buffer) {
  const std::size_t count = std::fread(buffer.data(), 1, buffer.size(), stdin);
  if (count == 0 && std::ferror(stdin) != 0) {
    throw FileError("standard input", LastError());
  }
  return count;
}

void StandardOutput::Write(std::string_view bytes) {
  if (std::fwrite(bytes.data(), 1, bytes.size(), stdout) != bytes.size()) {
    throw FileError("standard output", LastError());
  }
}

void StandardOutput::Flush() {
  if (std::fflush(stdout) != 0) {
    throw FileError("standard output", LastError());
  }
}

}  // namespace scrivanta
