#include "batch/StandardStreams.h"

#include "text/PlatformFile.h"
#include "text/WriteAll.h"

namespace scrivanta {

std::size_t StandardInput::Read(std::span<char> buffer) {
  const std::size_t count = std::fread(buffer.data(), 1, buffer.size(), stdin);
  if (count == 0 && std::ferror(stdin) != 0) {
    throw FileError("standard input", LastFileError());
  }
  return count;
}

std::optional<std::uint64_t> StandardInput::Size() const {
  return SizeOfFile(stdin);
}

void StandardOutput::Write(std::string_view bytes) {
  WriteAll(stdout, bytes, "standard output");
}

void StandardOutput::Flush() {
  if (std::fflush(stdout) != 0) {
    throw FileError("standard output", LastFileError());
  }
}

}  // namespace scrivanta
