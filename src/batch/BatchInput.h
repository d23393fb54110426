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
  // Throws FileError.
  explicit BatchInput(const std::filesystem::path& path);

  std::size_t Read(std::span<char> buffer) override;
  std::optional<std::uint64_t> Size() const override;

  // For a command that reads its input twice: to be called before the first Read, so that Rewind can be called after
  // it. What cannot be read twice by itself is copied into a temporary file.
  void MakeRewindable(Progress& progress);
  void Rewind();

 private:
  std::filesystem::path path_;
  std::unique_ptr<FileSource> file_;  // null: stream_ is read
  std::unique_ptr<Spool> spool_;      // a copy of the whole input, once there is one
  ByteSource* stream_ = nullptr;
};

}  // namespace scrivanta
