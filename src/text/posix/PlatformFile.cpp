#include "text/PlatformFile.h"

#include <cerrno>

namespace scrivanta {

std::FILE* OpenFile(const std::filesystem::path& path, OpenMode mode) {
  if (std::filesystem::is_directory(path)) {
    errno = EISDIR;
    return nullptr;
  }
  const char* modes = mode == OpenMode::kRead ? "rb" : mode == OpenMode::kReplace ? "wb" : "r+b";
  return std::fopen(path.c_str(), modes);
}

}  // namespace scrivanta
