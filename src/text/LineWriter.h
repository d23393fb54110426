// Lines into bytes, each ended by CR LF, gathered into large writes.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "text/Bytes.h"

namespace scrivanta {

class LineWriter {
 public:
  explicit LineWriter(ByteSink& sink) : sink_(sink) {}

  // The bytes of one line without its line end. Throws FileError.
  void WriteLine(std::string_view line);
  // Bytes as they stand, line ends and all.
  void WriteRaw(std::string_view bytes);
  // How many lines WriteLine has ended.
  std::uint64_t lines() const noexcept { return lines_; }
  // Hands what is gathered to the sink; to be called at the end of a successful work. What was not flushed is dropped.
  void Flush();

 private:
  ByteSink& sink_;
  std::string gathered_;
  std::uint64_t lines_ = 0;
};

}  // namespace scrivanta
