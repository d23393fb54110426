#include "text/Bytes.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>

#include "text/Encoding.h"
#include "text/PlatformFile.h"
#include "text/ReadAll.h"
#include "text/WriteAll.h"

namespace scrivanta {

namespace {

FileHandle Open(const std::filesystem::path& path, OpenMode mode) {
  FileHandle file(OpenFile(path, mode));
  if (!file) {
    throw FileError(path, LastFileError());
  }
  return file;
}

// In English where the platform's code has an equivalent of the C library.
std::string Explanation(const std::filesystem::path& path, const std::error_code& code) {
  return "'" + Encode(Encoding::kUtf8, TextOfPath(path)) + "': " + code.default_error_condition().message();
}

}  // namespace

FileError::FileError(const std::filesystem::path& path, std::error_code code)
    : std::runtime_error(Explanation(path, code)), path_(path), code_(code) {}

std::error_code LastFileError() noexcept {
  return {errno, std::generic_category()};
}

void FileCloser::operator()(std::FILE* file) const noexcept {
  std::fclose(file);
}

std::size_t MemorySource::Read(std::span<char> buffer) {
  const std::size_t count = std::min(buffer.size(), rest_.size());
  rest_.copy(buffer.data(), count);
  rest_.remove_prefix(count);
  return count;
}

FileSource::FileSource(const std::filesystem::path& path)
    : path_(path), file_(Open(path, OpenMode::kRead)), size_(SizeOfFile(file_.get())) {}

std::size_t FileSource::Read(std::span<char> buffer) {
  const std::size_t count = std::fread(buffer.data(), 1, buffer.size(), file_.get());
  if (count == 0 && std::ferror(file_.get()) != 0) {
    throw FileError(path_, LastFileError());
  }
  return count;
}

FileSink::FileSink(const std::filesystem::path& path) : path_(path), file_(Open(path, OpenMode::kReplace)) {}

void FileSink::Write(std::string_view bytes) {
  WriteAll(file_.get(), bytes, path_);
}

void FileSink::Flush() {
  if (const std::error_code code = FlushToDisk(file_.get())) {
    throw FileError(path_, code);
  }
}

void FileSink::Close() {
  if (std::fclose(file_.release()) != 0) {
    throw FileError(path_, LastFileError());
  }
}

std::string ReadWholeFile(const std::filesystem::path& path) {
  FileSource source(path);
  NoProgress progress;
  return ReadAll(source, progress);
}

}  // namespace scrivanta
