// The input of a console command: a file, or what comes through standard input.
#pragma once

#include <filesystem>
#include <memory>

#include "text/Bytes.h"
#include "text/Progress.h"
#include "text/Spool.h"

namespace scrivanta {

class BatchInput final : public ByteSource {
 public:
  explicit BatchInput(ByteSource& stream) : stream_(&stream) {}
  // The file is opened when it is first read or measured, which may throw FileError: a command that takes files and
  // folders by name has this one among them.
  explicit BatchInput(std::filesystem::path path) : path_(std::move(path)) {}
  // Empty: what comes through standard input.
  const std::filesystem::path& path() const noexcept { return path_; }

  std::size_t Read(std::span<char> buffer) override;
  std::optional<std::uint64_t> Size() const override;

  // For a command that reads its input twice: to be called before the first Read, so that Rewind can be called after
  // it. What cannot be read twice by itself is copied into a temporary file.
  void MakeRewindable(Progress& progress);
  void Rewind();

 private:
  ByteSource& Stream() const;

  std::filesystem::path path_;
  mutable std::unique_ptr<FileSource> file_;  // null while it is not open, and for standard input
  std::unique_ptr<Spool> spool_;              // a copy of the whole input, once there is one
  ByteSource* stream_ = nullptr;              // null: the file is read
};

}  // namespace scrivanta
