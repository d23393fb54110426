// The few things about files that the standard library leaves to the platform, or does not do for long paths there.
// Implemented in text/posix/ and in win/. Error codes are of the generic or the system category; compare with
// std::errc.
#pragma once

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

namespace scrivanta {

enum class OpenMode {
  kRead,
  kReplace,  // write, emptied when it exists
  kUpdate,   // read and write, must exist
  kCreate,   // read and write, fails with EEXIST when it exists
};

// Opens in binary mode; null with errno set when it fails. A folder fails with EISDIR on every platform. Other programs
// may read the file meanwhile.
std::FILE* OpenFile(const std::filesystem::path& path, OpenMode mode);

// Of a regular file; nothing for a pipe or a device.
std::optional<std::uint64_t> SizeOfFile(std::FILE* file);

// Two states of a file that differ have different stamps, as far as the file system's clock can tell.
struct FileStamp {
  std::uint64_t size = 0;     // in bytes
  std::int64_t modified = 0;  // in a unit of the platform's own

  bool operator==(const FileStamp&) const = default;
};
// Of a regular file; nothing for a pipe or a device.
std::optional<FileStamp> StampOfFile(std::FILE* file);

// Returns when what was written has reached the disk.
std::error_code FlushToDisk(std::FILE* file);

void RemoveFile(const std::filesystem::path& path) noexcept;
// The same unless it is open, as far as the platform knows.
void RemoveUnusedFile(const std::filesystem::path& path) noexcept;

// What stands where a file is to be put.
struct ReplaceTarget {
  std::filesystem::path path;  // the end of any symbolic links
  bool exists = false;
  std::error_code refusal;  // why it must not be replaced: no regular file, read-only, a chain of links without an end
};
ReplaceTarget InspectReplaceTarget(const std::filesystem::path& path);

// Gives one file what another has beside its content: permissions, owner, attributes, time of creation, as far as the
// user may.
void CopyAttributes(const std::filesystem::path& from, const std::filesystem::path& to);

// Gives one file, which nobody has open, what the file system keeps of another beside its content: whether it is
// compressed or encrypted, and streams or attributes under names of their own.
std::error_code CopyCompanions(const std::filesystem::path& from, const std::filesystem::path& to);

// Renames a file to a name in the same folder that may exist, in one step: at every moment the name means the old file
// or the new one. Returns when the disk has it.
std::error_code MoveInPlace(const std::filesystem::path& from, const std::filesystem::path& to);

// A path as text and back, without loss whatever the name is made of.
std::u16string TextOfPath(const std::filesystem::path& path);
std::filesystem::path PathOfText(std::u16string_view text);

}  // namespace scrivanta
