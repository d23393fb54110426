// Writing to a file of the C library, with the true reason when it fails.
#pragma once

#include <cstdio>
#include <filesystem>
#include <string_view>

namespace scrivanta {

// Throws FileError with this name when not all of the bytes could be written.
void WriteAll(std::FILE* file, std::string_view bytes, const std::filesystem::path& name);

}  // namespace scrivanta
