// What is known of a document's file: the state that the document was read from, or saved to last, and what other
// programs have made of the file since.
#pragma once

#include <filesystem>
#include <optional>

#include "text/PlatformFile.h"

namespace scrivanta {

class FileOnDisk {
 public:
  FileOnDisk() = default;
  // Nothing for the stamp: a file that is not watched.
  FileOnDisk(std::filesystem::path path, std::optional<FileStamp> stamp)
      : path_(std::move(path)), own_(stamp), seen_(stamp) {}
  // With the state of the file at this moment.
  explicit FileOnDisk(const std::filesystem::path& path) : FileOnDisk(path, StampOf(path)) {}

  const std::optional<FileStamp>& stamp() const noexcept { return own_; }

  // What the user has not been told yet; each state is told once.
  enum class News { kNone, kChanged, kGone };
  News Look();
  // The news could not be told: Look tells them again.
  void TellAgain() noexcept { seen_ = own_; }
  // The document is what the file has become.
  void Accept() noexcept { own_ = seen_; }
  // Whether there is a file that is another than the document's: saving would take it away.
  bool ChangedExternally() const;

 private:
  // Nothing when there is no file of the name, or none that can be looked at: then isGone tells which.
  static std::optional<FileStamp> StampOf(const std::filesystem::path& path, bool* isGone = nullptr);

  std::filesystem::path path_;
  std::optional<FileStamp> own_;
  std::optional<FileStamp> seen_;  // nothing: the user knows that the file is gone
};

}  // namespace scrivanta
