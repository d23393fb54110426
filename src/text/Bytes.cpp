#include "text/Bytes.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>

#include "text/PlatformFile.h"

namespace scrivanta {

namespace {

std::error_code LastError() {
  return {errno, std::generic_category()};
}

FileHandle Open(const std::filesystem::path& path, OpenMode mode) {
  FileHandle file(OpenFile(path, mode));
  if (!file) {
    throw FileError(path, LastError());
  }
  return file;
}

}  // namespace

FileError::FileError(const std::filesystem::path& path, std::error_code code)
    : std::runtime_error("'" + path.string() + "': " + code.message()), path_(path), code_(code) {}

void FileCloser::operator()(std::FILE* file) const noexcept {
  std::fclose(file);
}

std::size_t MemorySource::Read(std::span<char> buffer) {
  const std::size_t count = std::min(buffer.size(), rest_.size());
  rest_.copy(buffer.data(), count);
  rest_.remove_prefix(count);
  return count;
}

FileSource::FileSource(const std::filesystem::path& path) : path_(path), file_(Open(path, OpenMode::kRead)) {
  std::error_code ignored;
  if (std::filesystem::is_regular_file(path, ignored)) {
    size_ = std::filesystem::file_size(path, ignored);
  }
}

std::size_t FileSource::Read(std::span<char> buffer) {
  const std::size_t count = std::fread(buffer.data(), 1, buffer.size(), file_.get());
  if (count == 0 && std::ferror(file_.get()) != 0) {
    throw FileError(path_, LastError());
  }
  return count;
}

FileSink::FileSink(const std::filesystem::path& path) : path_(path), file_(Open(path, OpenMode::kReplace)) {}

void FileSink::Write(std::string_view bytes) {
  if (std::fwrite(bytes.data(), 1, bytes.size(), file_.get()) != bytes.size()) {
    throw FileError(path_, LastError());
  }
}

void FileSink::Close() {
  if (std::fclose(file_.release()) != 0) {
    throw FileError(path_, LastError());
  }
}

std::string ReadWholeFile(const std::filesystem::path& path) {
  FileSource source(path);
  std::string bytes(source.Size().value_or(0) + 1, '\0');
  std::size_t used = 0;
  while (const std::size_t count = source.Read(std::span(bytes).subspan(used))) {
    used += count;
    if (used == bytes.size()) {
      bytes.resize(bytes.size() * 2);
    }
  }
  bytes.resize(used);
  return bytes;
}

}  // namespace scrivanta
