// Standard input and output as sources and sinks of bytes.
#pragma once

#include <cstdio>

#include "text/Bytes.h"

namespace scrivanta {

class StandardInput final : public ByteSource {
 public:
  std::size_t Read(std::span<char> buffer) override;
  std::optional<std::uint64_t> Size() const override;
};

class StandardOutput final : public ByteSink {
 public:
  void Write(std::string_view bytes) override;
  // Hands what is buffered to the system. Throws FileError.
  void Flush();
};

}  // namespace scrivanta
