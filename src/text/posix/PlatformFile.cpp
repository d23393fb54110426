#include "text/PlatformFile.h"

#include <cerrno>

namespace scrivanta {

namespace {

const char* ModeText(OpenMode mode) {
  switch (mode) {
    case OpenMode::kRead:
      return "rb";
    case OpenMode::kReplace:
      return "wb";
    case OpenMode::kUpdate:
      return "r+b";
    case OpenMode::kCreate:
      return "w+bx";
  }
  return "";
}

}  // namespace

std::FILE* OpenFile(const std::filesystem::path& path, OpenMode mode) {
  if (std::filesystem::is_directory(path)) {
    errno = EISDIR;
    return nullptr;
  }
  return std::fopen(path.c_str(), ModeText(mode));
}

}  // namespace scrivanta
