#include "shell/document/RecoveryPlace.h"

#include <algorithm>
#include <system_error>
#include <utility>

#include "text/Bytes.h"
#include "text/CrashPoint.h"
#include "text/PlatformFile.h"
#include "text/TemporaryName.h"

namespace scrivanta {

namespace {

namespace fs = std::filesystem;

constexpr char16_t kSnapshotName[] = u"Document.snapshot";
constexpr char16_t kClaimName[] = u"InUse";
constexpr char16_t kUnfinished[] = u".tmp";  // of the names that AtomicFile makes

}  // namespace

RecoveryPlace::RecoveryPlace(fs::path folder, std::unique_ptr<FileClaim> claim)
    : folder_(std::move(folder)), claim_(std::move(claim)) {}

RecoveryPlace RecoveryPlace::Make(const fs::path& root) {
  // Another instance that is looking through the folders may just have taken the new one for one left behind, or
  // removed the root as empty.
  constexpr int kTries = 5;
  fs::path folder;
  std::error_code error;
  for (int i = 0; i < kTries; ++i) {
    folder = root / fs::path(TemporaryName()).stem();
    fs::create_directories(folder, error);
    if (std::optional<RecoveryPlace> place = Take(folder)) {
      return *std::move(place);
    }
  }
  throw FileError(folder, error ? error : std::make_error_code(std::errc::permission_denied));
}

std::optional<RecoveryPlace> RecoveryPlace::Take(const fs::path& folder) {
  std::unique_ptr<FileClaim> claim = FileClaim::Take(folder / kClaimName);
  return claim ? std::optional(RecoveryPlace(folder, std::move(claim))) : std::nullopt;
}

std::vector<RecoveryPlace> RecoveryPlace::TakeLeftBehind(const fs::path& root) {
  std::vector<std::pair<fs::file_time_type, RecoveryPlace>> found;
  std::error_code error;
  std::vector<fs::path> folders;
  for (fs::directory_iterator entry(root, error); !error && entry != fs::directory_iterator(); entry.increment(error)) {
    folders.push_back(entry->path());
  }
  for (const fs::path& folder : folders) {
    if (std::optional<RecoveryPlace> place = Take(folder)) {
      place->RemoveUnfinished();
      if (place->HasSnapshot()) {
        const auto time = fs::last_write_time(place->SnapshotPath(), error);
        found.emplace_back(time, *std::move(place));
      }
    }
  }
  std::ranges::sort(found, {}, [](const auto& entry) { return entry.first; });
  std::vector<RecoveryPlace> places;
  std::ranges::transform(found, std::back_inserter(places), [](auto& entry) { return std::move(entry.second); });
  return places;
}

RecoveryPlace& RecoveryPlace::operator=(RecoveryPlace&& other) noexcept {
  if (this != &other) {
    Leave();
    folder_ = std::move(other.folder_);
    claim_ = std::move(other.claim_);
  }
  return *this;
}

RecoveryPlace::~RecoveryPlace() {
  Leave();
}

void RecoveryPlace::Leave() {
  if (std::exchange(claim_, nullptr)) {
    std::error_code notEmpty;
    fs::remove(folder_, notEmpty);
    fs::remove(folder_.parent_path(), notEmpty);
  }
}

fs::path RecoveryPlace::SnapshotPath() const {
  return folder_ / kSnapshotName;
}

bool RecoveryPlace::IsSnapshotPath(const fs::path& root, const fs::path& path) {
  return path.filename() == kSnapshotName && path.parent_path().parent_path() == root;
}

bool RecoveryPlace::HasSnapshot() const {
  std::error_code error;
  return fs::exists(SnapshotPath(), error);
}

std::optional<Snapshot> RecoveryPlace::Read() const {
  try {
    return ReadSnapshot(ReadWholeFile(SnapshotPath()));
  } catch (const FileError&) {
    return std::nullopt;
  }
}

void RecoveryPlace::RemoveSnapshot() const {
  RemoveFile(SnapshotPath());
  PassCrashPoint("the snapshot is removed");
}

void RecoveryPlace::RemoveUnfinished() const {
  std::error_code error;
  std::vector<fs::path> unfinished;
  for (fs::directory_iterator entry(folder_, error); !error && entry != fs::directory_iterator();
       entry.increment(error)) {
    if (entry->path().extension() == kUnfinished) {
      unfinished.push_back(entry->path());
    }
  }
  std::ranges::for_each(unfinished, &RemoveFile);
}

}  // namespace scrivanta
