// Bytes kept until it is known whether they are wanted: in memory while they are few, in a temporary file beyond that.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <utility>

#include "text/Bytes.h"

namespace scrivanta {

// A file in a folder for temporary ones that is gone when its owner is.
class TemporaryFile {
 public:
  explicit TemporaryFile(const std::filesystem::path& folder);
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;
  ~TemporaryFile();

  const std::filesystem::path& path() const noexcept { return path_; }
  std::FILE* get() const noexcept { return file_.get(); }

 private:
  std::filesystem::path path_;
  FileHandle file_;
};

class Spool final : public ByteSink, public ByteSource {
 public:
  static constexpr std::size_t kMemoryLimit = 8 * 1024 * 1024;  // bytes

  explicit Spool(std::filesystem::path folder = std::filesystem::temp_directory_path(),
                 std::size_t memoryLimit = kMemoryLimit)
      : folder_(std::move(folder)), memoryLimit_(memoryLimit) {}

  void Write(std::string_view bytes) override;
  // Reads from the beginning, again after each Rewind. Nothing is written after the first Read.
  std::size_t Read(std::span<char> buffer) override;
  std::optional<std::uint64_t> Size() const override { return size_; }
  void Rewind();

 private:
  void WriteToFile(std::string_view bytes);

  std::filesystem::path folder_;
  std::size_t memoryLimit_;
  std::string memory_;
  std::unique_ptr<TemporaryFile> file_;  // holds all of it, once there is one
  std::uint64_t size_ = 0;
  std::uint64_t readPosition_ = 0;
};

// All that a source still has, into a sink.
void CopyBytes(ByteSource& source, ByteSink& sink);

}  // namespace scrivanta
