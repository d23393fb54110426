// Tells contents of files apart without keeping them: the same for the same bytes wherever and whenever it is taken.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string_view>

#include "text/Bytes.h"

namespace scrivanta {

struct Fingerprint {
  std::uint64_t size = 0;  // in bytes
  std::uint64_t hash = 0;

  bool operator==(const Fingerprint&) const = default;
};

// Takes the fingerprint of what is written to it.
class FingerprintSink final : public ByteSink {
 public:
  void Write(std::string_view bytes) override;
  Fingerprint fingerprint() const noexcept;

 private:
  void TakeByte(char byte) noexcept;

  std::uint64_t size_ = 0;
  std::uint64_t hash_ = 0xCBF29CE484222325U;
  std::uint64_t part_ = 0;  // the bytes that do not fill a part yet
};

Fingerprint FingerprintOf(std::string_view bytes);
// Of a file of any length. Throws FileError.
Fingerprint FingerprintOfFile(const std::filesystem::path& path);

}  // namespace scrivanta
