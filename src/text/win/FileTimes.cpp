#include "text/FileTimes.h"

#include <windows.h>

#include "text/Bytes.h"
#include "text/win/Handles.h"
#include "text/win/SystemPath.h"

namespace scrivanta {

namespace {

// From the beginning of the platform's count, 1601, to that of ours, 1970.
constexpr FileTicks kBetweenEpochs = std::chrono::days(134'774);
constexpr int kBitsOfHalf = 32;

FileMoment MomentOf(const FILETIME& time) {
  const std::uint64_t ticks = (std::uint64_t{time.dwHighDateTime} << kBitsOfHalf) | time.dwLowDateTime;
  return FileMoment(FileTicks(static_cast<std::int64_t>(ticks)) - kBetweenEpochs);
}

FILETIME FileTimeOf(FileMoment moment) {
  const auto ticks = static_cast<std::uint64_t>((moment.time_since_epoch() + kBetweenEpochs).count());
  return {.dwLowDateTime = static_cast<DWORD>(ticks), .dwHighDateTime = static_cast<DWORD>(ticks >> kBitsOfHalf)};
}

[[noreturn]] void Throw(const std::filesystem::path& path, DWORD code) {
  throw FileError(path, {static_cast<int>(code), std::system_category()});
}

OwnedFile Open(const std::filesystem::path& path, DWORD access) {
  constexpr DWORD kEveryUse = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  OwnedFile file(CreateFileW(SystemPath(path).c_str(), access, kEveryUse, nullptr, OPEN_EXISTING,
                             FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OPEN_REPARSE_POINT, nullptr));
  if (!file) {
    Throw(path, GetLastError());
  }
  return file;
}

FileTimes TimesOf(const std::filesystem::path& path, HANDLE file) {
  FILETIME created{};
  FILETIME accessed{};
  FILETIME modified{};
  if (GetFileTime(file, &created, &accessed, &modified) == FALSE) {
    Throw(path, GetLastError());
  }
  FileTimes times;
  times[FileTimeKind::kCreated] = MomentOf(created);
  times[FileTimeKind::kModified] = MomentOf(modified);
  times[FileTimeKind::kAccessed] = MomentOf(accessed);
  return times;
}

class WindowsFileTimes final : public FileTimesStore {
 public:
  FileTimes Read(const std::filesystem::path& path) const override {
    return TimesOf(path, Open(path, FILE_READ_ATTRIBUTES).get());
  }

  void Write(const std::filesystem::path& path, const FileTimes& times) const override {
    const OwnedFile file = Open(path, FILE_READ_ATTRIBUTES | FILE_WRITE_ATTRIBUTES);
    std::array<FILETIME, kFileTimeKinds.size()> values{};
    std::array<const FILETIME*, kFileTimeKinds.size()> given{};
    for (const FileTimeKind kind : kFileTimeKinds) {
      if (times[kind]) {
        const auto index = static_cast<std::size_t>(kind);
        values[index] = FileTimeOf(*times[kind]);
        given[index] = &values[index];
      }
    }
    const auto [created, modified, accessed] = given;
    if (SetFileTime(file.get(), created, accessed, modified) == FALSE) {
      Throw(path, GetLastError());
    }
    CheckCreated(path, file.get(), times[FileTimeKind::kCreated]);
  }

 private:
  // Some systems accept a time of creation and keep their own; some round it.
  static void CheckCreated(const std::filesystem::path& path, HANDLE file, const std::optional<FileMoment>& wanted) {
    constexpr std::chrono::seconds kCoarsest{2};
    if (wanted && std::chrono::abs(*TimesOf(path, file)[FileTimeKind::kCreated] - *wanted) > kCoarsest) {
      Throw(path, ERROR_NOT_SUPPORTED);
    }
  }
};

SYSTEMTIME SystemTimeOf(std::int64_t ticksSinceEpoch) {
  const FILETIME time = FileTimeOf(FileMoment(FileTicks(ticksSinceEpoch)));
  SYSTEMTIME parts{};
  FileTimeToSystemTime(&time, &parts);
  return parts;
}

// The parts of a moment count milliseconds, so what is smaller is carried past them.
template <typename Moment>
Moment MomentOf(const SYSTEMTIME& parts, FileTicks below) {
  FILETIME time{};
  SystemTimeToFileTime(&parts, &time);
  return Moment(MomentOf(time).time_since_epoch() + below);
}

class WindowsTimeZone final : public TimeZone {
 public:
  LocalFileMoment ToLocal(FileMoment moment) const override {
    const auto whole = std::chrono::floor<std::chrono::milliseconds>(moment);
    const SYSTEMTIME utc = SystemTimeOf(FileMoment(whole).time_since_epoch().count());
    SYSTEMTIME local{};
    SystemTimeToTzSpecificLocalTime(nullptr, &utc, &local);
    return MomentOf<LocalFileMoment>(local, moment - whole);
  }

  FileMoment FromLocal(LocalFileMoment moment) const override {
    const auto whole = std::chrono::floor<std::chrono::milliseconds>(moment);
    const SYSTEMTIME local = SystemTimeOf(LocalFileMoment(whole).time_since_epoch().count());
    SYSTEMTIME utc{};
    TzSpecificLocalTimeToSystemTime(nullptr, &local, &utc);
    return MomentOf<FileMoment>(utc, moment - whole);
  }
};

}  // namespace

const FileTimesStore& SystemFileTimes() {
  static const WindowsFileTimes kTimes;
  return kTimes;
}

const TimeZone& SystemTimeZone() {
  static const WindowsTimeZone kZone;
  return kZone;
}

}  // namespace scrivanta
