#pragma once

#include "text/Bytes.h"

namespace scrivanta {

// Bytes in memory that can be read again; they outlive the source.
class RewindableMemory final : public ByteSource {
 public:
  explicit RewindableMemory(std::string_view bytes) : bytes_(bytes) { Rewind(); }

  std::size_t Read(std::span<char> buffer) override { return source_->Read(buffer); }
  std::optional<std::uint64_t> Size() const override { return bytes_.size(); }
  void Rewind() { source_.emplace(bytes_); }

 private:
  std::string_view bytes_;
  std::optional<MemorySource> source_;
};

}  // namespace scrivanta
