#pragma once

#include <filesystem>
#include <string>

namespace scrivanta {

// The path as the system's functions take it, however long it is.
std::wstring SystemPath(const std::filesystem::path& path);

}  // namespace scrivanta
