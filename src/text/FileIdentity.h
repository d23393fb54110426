// How the file system tells files apart. Implemented in text/posix/ and in text/win/.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>

namespace scrivanta {

// What tells a file or a folder from every other one that is there, under whatever name.
struct FileIdentity {
  std::uint64_t volume = 0;
  std::uint64_t file = 0;

  bool operator==(const FileIdentity&) const = default;
};

// At the end of any links; nothing where there is none, or none that may be looked at.
std::optional<FileIdentity> IdentityOf(const std::filesystem::path& path);

// Whether the file system takes the two names of files in one folder for the same.
bool AreSameName(const std::filesystem::path& one, const std::filesystem::path& other);

}  // namespace scrivanta
