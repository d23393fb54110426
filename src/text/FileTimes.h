// The times that a file system keeps of a file or a folder, and the zone in which they are read.
// Implemented in text/posix/ and in text/win/.
#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <optional>

#include "text/Interface.h"

namespace scrivanta {

// 100 nanoseconds, the unit of the platform.
using FileTicks = std::chrono::duration<std::int64_t, std::ratio<1, 10'000'000>>;
using FileMoment = std::chrono::sys_time<FileTicks>;         // UTC
using LocalFileMoment = std::chrono::local_time<FileTicks>;  // what a clock on the wall showed

enum class FileTimeKind { kCreated, kModified, kAccessed };
inline constexpr std::array kFileTimeKinds = {FileTimeKind::kCreated, FileTimeKind::kModified, FileTimeKind::kAccessed};

// One entry a kind. Read: nothing where the file system keeps no such time. To write: nothing for what is to stay.
class FileTimes {
 public:
  std::optional<FileMoment>& operator[](FileTimeKind kind) { return moments_[static_cast<std::size_t>(kind)]; }
  const std::optional<FileMoment>& operator[](FileTimeKind kind) const {
    return moments_[static_cast<std::size_t>(kind)];
  }

  bool operator==(const FileTimes&) const = default;

 private:
  std::array<std::optional<FileMoment>, kFileTimeKinds.size()> moments_;
};

class FileTimesStore : public Interface {
 public:
  // Of the path itself: a link is not followed. Throws FileError.
  virtual FileTimes Read(const std::filesystem::path& path) const = 0;
  // A read-only file is no obstacle, and stays read-only. Throws FileError, also where the file system has kept
  // another time of creation than it was given.
  virtual void Write(const std::filesystem::path& path, const FileTimes& times) const = 0;
};
const FileTimesStore& SystemFileTimes();

// Between UTC and the clock on the wall, with the rule of summer time that held at that moment, as the system knows it.
class TimeZone : public Interface {
 public:
  virtual LocalFileMoment ToLocal(FileMoment moment) const = 0;
  virtual FileMoment FromLocal(LocalFileMoment moment) const = 0;
};
const TimeZone& SystemTimeZone();

}  // namespace scrivanta
