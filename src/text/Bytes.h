// Where bytes come from and go to. The transforms know nothing else of files, memory or pipes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>

#include "text/Interface.h"

namespace scrivanta {

// A file that could not be opened, read, written or put in place. what() is English; the window makes its own sentence
// from path and code.
class FileError : public std::runtime_error {
 public:
  FileError(const std::filesystem::path& path, std::error_code code);

  const std::filesystem::path& path() const noexcept { return path_; }
  const std::error_code& code() const noexcept { return code_; }

 private:
  std::filesystem::path path_;
  std::error_code code_;
};

// Why the last call of the C library on a file failed.
std::error_code LastFileError() noexcept;

class ByteSource : public Interface {
 public:
  // Fills the front of the buffer and returns how many bytes it has put there; 0 only at the end. Throws FileError.
  virtual std::size_t Read(std::span<char> buffer) = 0;
  // The whole length in bytes, where it is known.
  virtual std::optional<std::uint64_t> Size() const { return std::nullopt; }
};

class ByteSink : public Interface {
 public:
  // Takes all of the bytes. Throws FileError.
  virtual void Write(std::string_view bytes) = 0;
};

// Reads a text that stands in memory and outlives the source.
class MemorySource final : public ByteSource {
 public:
  explicit MemorySource(std::string_view bytes) : rest_(bytes), size_(bytes.size()) {}
  std::size_t Read(std::span<char> buffer) override;
  std::optional<std::uint64_t> Size() const override { return size_; }

 private:
  std::string_view rest_;
  std::size_t size_;
};

class StringSink final : public ByteSink {
 public:
  void Write(std::string_view bytes) override { bytes_.append(bytes); }
  const std::string& bytes() const noexcept { return bytes_; }

 private:
  std::string bytes_;
};

// Closes a file of the C library; errors on closing matter only to who writes, and FileSink asks for them itself.
struct FileCloser {
  void operator()(std::FILE* file) const noexcept;
};
using FileHandle = std::unique_ptr<std::FILE, FileCloser>;

class FileSource final : public ByteSource {
 public:
  explicit FileSource(const std::filesystem::path& path);
  std::size_t Read(std::span<char> buffer) override;
  std::optional<std::uint64_t> Size() const override { return size_; }

 private:
  std::filesystem::path path_;
  FileHandle file_;
  std::optional<std::uint64_t> size_;
};

// Writes a file from its beginning, replacing what it held: for files of our own in the temporary folder. A file of the
// user's is written through AtomicFile. Close reports what a late write could not do; the destructor drops it.
class FileSink final : public ByteSink {
 public:
  explicit FileSink(const std::filesystem::path& path);
  void Write(std::string_view bytes) override;
  // Returns when what has been written so far has reached the disk.
  void Flush();
  void Close();

 private:
  std::filesystem::path path_;
  FileHandle file_;
};

// The whole of a file. Throws FileError.
std::string ReadWholeFile(const std::filesystem::path& path);

}  // namespace scrivanta
