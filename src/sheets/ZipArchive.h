// The entries of a zip archive that stands in memory, unpacked within limits.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "text/Progress.h"

namespace scrivanta {

struct ZipLimits {
  std::uint64_t entryBytes;
  std::uint64_t ratio;  // unpacked to packed, of an entry of more than 16 MiB
};

class ZipArchive {
 public:
  // The bytes outlive the archive.
  explicit ZipArchive(std::string_view bytes);
  ~ZipArchive();

  bool isOpen() const noexcept;

  enum class Outcome { kRead, kMissing, kDamaged, kTooLarge };
  struct Entry {
    Outcome outcome = Outcome::kMissing;
    std::string bytes;
  };
  // Names are compared without regard to case. Throws Interrupted.
  Entry Read(const std::string& name, const ZipLimits& limits, Progress& progress) const;

 private:
  struct Library;

  std::unique_ptr<Library> library_;
};

}  // namespace scrivanta
