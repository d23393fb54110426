#include "text/FileTimes.h"

#include <ctime>

#include <fcntl.h>
#include <sys/stat.h>

#include "text/Bytes.h"

namespace scrivanta {

namespace {

constexpr long kNanosecondsOfTick = 100;

template <typename Timestamp>
FileMoment MomentOf(const Timestamp& timestamp) {
  return FileMoment(std::chrono::seconds(timestamp.tv_sec) +
                    FileTicks(static_cast<std::int64_t>(timestamp.tv_nsec) / kNanosecondsOfTick));
}

timespec TimestampOf(const std::optional<FileMoment>& moment) {
  if (!moment) {
    return {.tv_sec = 0, .tv_nsec = UTIME_OMIT};
  }
  const auto seconds = std::chrono::floor<std::chrono::seconds>(*moment);
  return {.tv_sec = seconds.time_since_epoch().count(), .tv_nsec = (*moment - seconds).count() * kNanosecondsOfTick};
}

class PosixFileTimes final : public FileTimesStore {
 public:
  FileTimes Read(const std::filesystem::path& path) const override {
    struct statx status = {};
    constexpr unsigned kWanted = STATX_BTIME | STATX_MTIME | STATX_ATIME;
    if (statx(AT_FDCWD, path.c_str(), AT_SYMLINK_NOFOLLOW, kWanted, &status) != 0) {
      throw FileError(path, LastFileError());
    }
    FileTimes times;
    times[FileTimeKind::kModified] = MomentOf(status.stx_mtime);
    times[FileTimeKind::kAccessed] = MomentOf(status.stx_atime);
    if ((status.stx_mask & STATX_BTIME) != 0) {
      times[FileTimeKind::kCreated] = MomentOf(status.stx_btime);
    }
    return times;
  }

  void Write(const std::filesystem::path& path, const FileTimes& times) const override {
    const timespec timestamps[] = {TimestampOf(times[FileTimeKind::kAccessed]),
                                   TimestampOf(times[FileTimeKind::kModified])};
    if (utimensat(AT_FDCWD, path.c_str(), timestamps, AT_SYMLINK_NOFOLLOW) != 0) {
      throw FileError(path, LastFileError());
    }
    if (times[FileTimeKind::kCreated]) {
      throw FileError(path, std::make_error_code(std::errc::operation_not_supported));
    }
  }
};

class PosixTimeZone final : public TimeZone {
 public:
  LocalFileMoment ToLocal(FileMoment moment) const override {
    const auto seconds = std::chrono::floor<std::chrono::seconds>(moment);
    const std::time_t time = seconds.time_since_epoch().count();
    std::tm parts = {};
    localtime_r(&time, &parts);
    return LocalFileMoment(moment.time_since_epoch() + std::chrono::seconds(parts.tm_gmtoff));
  }

  FileMoment FromLocal(LocalFileMoment moment) const override {
    const auto seconds = std::chrono::floor<std::chrono::seconds>(moment);
    const auto day = std::chrono::floor<std::chrono::days>(seconds);
    const std::chrono::year_month_day date(day);
    const std::chrono::hh_mm_ss time(seconds - day);
    constexpr int kFirstYear = 1900;
    std::tm parts = {};
    parts.tm_year = static_cast<int>(date.year()) - kFirstYear;
    parts.tm_mon = static_cast<int>(static_cast<unsigned>(date.month())) - 1;
    parts.tm_mday = static_cast<int>(static_cast<unsigned>(date.day()));
    parts.tm_hour = static_cast<int>(time.hours().count());
    parts.tm_min = static_cast<int>(time.minutes().count());
    parts.tm_sec = static_cast<int>(time.seconds().count());
    parts.tm_isdst = -1;  // whatever held then
    return FileMoment(std::chrono::seconds(std::mktime(&parts)) + (moment - seconds));
  }
};

}  // namespace

const FileTimesStore& SystemFileTimes() {
  static const PosixFileTimes kTimes;
  return kTimes;
}

const TimeZone& SystemTimeZone() {
  static const PosixTimeZone kZone;
  return kZone;
}

}  // namespace scrivanta
