// The addresses in files of any kind.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "text/Progress.h"

namespace scrivanta {

// Collects http, https, ftp, magnet, ed2k, thunder, flashget and qqdl addresses, each once, in the order in which they
// are found. They may stand among any bytes, as GBK, UTF-8 or UTF-16. Wrapped ones are decoded; one that cannot be
// stays as it is.
class DownloadLinks {
 public:
  // What is longer than this is no address, and is passed over.
  static constexpr std::size_t kLongest = 16 * 1024;  // bytes

  // A whole file, in constant memory. Throws FileError, Interrupted.
  void AddFile(const std::filesystem::path& path, Progress& progress);
  void AddBytes(std::string_view bytes) { Scan(bytes, true); }

  const std::vector<std::u16string>& links() const noexcept { return links_; }

 private:
  std::size_t Scan(std::string_view bytes, bool isLast);
  void Add(std::u16string link);

  std::vector<std::u16string> links_;
  std::unordered_set<std::u16string> known_;
};

}  // namespace scrivanta
