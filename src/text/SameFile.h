// Paths are compared as the file system does, not as they are written: a.txt is A.TXT where the file system says so,
// and a link is what it leads to.
#pragma once

#include <filesystem>

namespace scrivanta {

// From the root on, without "." and ".."; the path itself where it can be no file's.
std::filesystem::path AbsolutePath(const std::filesystem::path& path);

// Whether both mean one file. It need not be there: then folder and name decide.
bool IsSameFile(const std::filesystem::path& one, const std::filesystem::path& other);

}  // namespace scrivanta
