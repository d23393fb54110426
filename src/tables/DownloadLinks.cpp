#include "tables/DownloadLinks.h"

#include <algorithm>

#include "tables/LinkScanner.h"
#include "text/Bytes.h"

namespace scrivanta {

namespace {

constexpr std::size_t kBlockSize = 256 * 1024;
constexpr std::size_t kLongestScheme = 32;  // bytes, with what follows it and as UTF-16

}  // namespace

void DownloadLinks::AddFile(const std::filesystem::path& path, Progress& progress) {
  FileSource source(path);
  std::string bytes;
  std::uint64_t read = 0;
  for (bool isLast = false; !isLast;) {
    const std::size_t kept = bytes.size();
    bytes.resize(kept + kBlockSize);
    const std::size_t count = source.Read(std::span(bytes).subspan(kept));
    bytes.resize(kept + count);
    isLast = count == 0;
    read += count;
    progress.Report(read, source.Size().value_or(0));
    bytes.erase(0, Scan(bytes, isLast) & ~std::size_t{1});  // even places stay even
  }
}

// How many bytes are done with; the rest may be the beginning of an address.
std::size_t DownloadLinks::Scan(std::string_view bytes, bool isLast) {
  std::size_t done = 0;
  while (const std::optional<LinkStart> start = FindLinkStart(bytes, done)) {
    const std::string_view rest = bytes.substr(start->at);
    const std::size_t extent = ExtentOfLink(rest, start->bytes);
    const bool isOpen = rest.size() - extent < 2;  // in UTF-16 half a character may be left over
    if (isOpen && !isLast && extent <= kLongest) {
      return start->at;
    }
    std::optional<FoundLink> link;
    if (extent <= kLongest) {
      link = ReadLink(rest.substr(0, extent), start->bytes);
    }
    done = start->at + (link ? link->bytes : kLongestScheme / 8);
    if (link) {
      Add(std::move(link->address));
    }
  }
  return isLast ? bytes.size() : std::max(done, bytes.size() - std::min(bytes.size(), kLongestScheme));
}

void DownloadLinks::Add(std::u16string link) {
  if (known_.insert(link).second) {
    links_.push_back(std::move(link));
  }
}

}  // namespace scrivanta
