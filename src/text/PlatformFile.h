// The few things about files that the standard library leaves to the platform. Implemented in text/posix/ and in win/.
#pragma once

#include <cstdio>
#include <filesystem>

namespace scrivanta {

enum class OpenMode {
  kRead,
  kReplace,  // write, emptied when it exists
  kUpdate,   // read and write, must exist
  kCreate,   // read and write, fails with EEXIST when it exists
};

// Opens in binary mode; null with errno set when it fails. A folder fails with EISDIR on every platform.
std::FILE* OpenFile(const std::filesystem::path& path, OpenMode mode);

}  // namespace scrivanta
