#include "text/ReadAll.h"

#include <algorithm>

namespace scrivanta {

std::string ReadAll(ByteSource& source, Progress& progress) {
  constexpr std::size_t kBlockSize = 256 * 1024;
  const std::uint64_t total = source.Size().value_or(0);
  std::string bytes(static_cast<std::size_t>(total) + 1, '\0');
  std::size_t used = 0;
  for (;;) {
    const std::span<char> rest = std::span(bytes).subspan(used);
    const std::size_t count = source.Read(rest.first(std::min(rest.size(), kBlockSize)));
    if (count == 0) {
      break;
    }
    used += count;
    progress.Report(used, total);
    if (used == bytes.size()) {
      bytes.resize(bytes.size() * 2);
    }
  }
  bytes.resize(used);
  return bytes;
}

}  // namespace scrivanta
