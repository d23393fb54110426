#include "shell/document/FileOnDisk.h"

#include <cerrno>

#include "text/Bytes.h"

namespace scrivanta {

std::optional<FileStamp> FileOnDisk::StampOf(const std::filesystem::path& path, bool* isGone) {
  const FileHandle file(OpenFile(path, OpenMode::kRead));
  if (isGone != nullptr) {
    *isGone = !file && (errno == ENOENT || errno == ENOTDIR);
  }
  return file ? StampOfFile(file.get()) : std::nullopt;
}

FileOnDisk::News FileOnDisk::Look() {
  bool isGone = false;
  const std::optional<FileStamp> now = own_ ? StampOf(path_, &isGone) : std::nullopt;
  // A file that is locked, or on a machine that does not answer, may be as it was.
  if ((!now && !isGone) || now == seen_) {
    return News::kNone;
  }
  seen_ = now;
  if (isGone) {
    return News::kGone;
  }
  return now == own_ ? News::kNone : News::kChanged;
}

bool FileOnDisk::ChangedExternally() const {
  const std::optional<FileStamp> now = own_ ? StampOf(path_) : std::nullopt;
  return now && now != own_;
}

}  // namespace scrivanta
