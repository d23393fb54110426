#include "text/AtomicFile.h"

#include <cerrno>
#include <chrono>

#include "text/CrashPoint.h"
#include "text/FolderEntries.h"
#include "text/PlatformFile.h"
#include "text/TemporaryName.h"
#include "text/WriteAll.h"

namespace scrivanta {

AtomicFile::AtomicFile(const std::filesystem::path& target, Durability durability)
    : name_(target), durability_(durability) {
  const ReplaceTarget place = InspectReplaceTarget(target);
  if (place.refusal) {
    throw FileError(name_, place.refusal);
  }
  target_ = place.path;
  do {
    beside_ = target_.parent_path() / TemporaryName();
    file_.reset(OpenFile(beside_, OpenMode::kCreate));
  } while (!file_ && errno == EEXIST);
  if (!file_) {
    throw FileError(name_, LastFileError());
  }
  replaces_ = place.exists;
  if (replaces_) {
    CopyAttributes(target_, beside_);
  }
  PassCrashPoint("a file is made beside its target");
}

AtomicFile::~AtomicFile() {
  file_.reset();
  if (!beside_.empty()) {
    RemoveFile(beside_);
  }
}

void AtomicFile::Write(std::string_view bytes) {
  WriteAll(file_.get(), bytes, name_);
  PassCrashPoint("a part is written");
}

void AtomicFile::Flush() {
  if (const std::error_code code = FlushToDisk(file_.get())) {
    throw FileError(name_, code);
  }
}

void AtomicFile::Prepare() {
  if (durability_ == Durability::kAgainstPowerCut) {
    Flush();
  }
  if (std::fclose(file_.release()) != 0) {
    throw FileError(name_, LastFileError());
  }
  if (replaces_) {
    if (const std::error_code code = CopyCompanions(target_, beside_)) {
      throw FileError(name_, code);
    }
  }
  PassCrashPoint("all is written");
}

void AtomicFile::Commit() {
  if (file_) {
    Prepare();
  }
  if (const std::error_code code = MoveInPlace(beside_, target_)) {
    throw FileError(name_, code);
  }
  beside_.clear();
  PassCrashPoint("the file is in place");
}

void RemoveLeftBehind(const std::filesystem::path& folder) {
  constexpr std::chrono::minutes kOfTheLiving{1};
  const auto latest = std::filesystem::file_time_type::clock::now() - kOfTheLiving;
  // What cannot be looked at stays for another time.
  static_cast<void>(VisitFolder(folder, [latest](const std::filesystem::path& path, FolderEntryKind kind) {
    if (kind != FolderEntryKind::kFile || !IsTemporaryName(TextOfPath(path.filename()))) {
      return;
    }
    std::error_code error;
    if (std::filesystem::last_write_time(path, error) < latest && !error) {
      RemoveUnusedFile(path);
    }
  }));
}

void ReplaceFileContent(const std::filesystem::path& target, std::string_view bytes) {
  AtomicFile file(target);
  file.Write(bytes);
  file.Commit();
}

}  // namespace scrivanta
