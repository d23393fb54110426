// What is known of a document's file: the state that the document was read from, or saved to last, and what other
// programs have made of the file since.
#pragma once

#include <filesystem>
#include <optional>
#include <string_view>

#include "text/Fingerprint.h"
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

  // Absolute; empty when the document is in no file.
  const std::filesystem::path& path() const noexcept { return path_; }
  const std::optional<FileStamp>& stamp() const noexcept { return own_; }

  // What the document was read from, or saved as.
  void NoteContent(std::string_view bytes) noexcept { content_ = FingerprintOf(bytes); }
  // Whether the bytes are what was noted: the file has only been touched.
  bool Holds(std::string_view bytes) const noexcept { return content_ == FingerprintOf(bytes); }

  // What the user has not been told yet; each state is told once.
  enum class News { kNone, kChanged, kGone };
  News Look();
  // The news could not be told: Look tells them again.
  void TellAgain() noexcept { seen_ = own_; }
  // The document is what the file has become: these bytes.
  void Accept(std::string_view bytes) noexcept {
    own_ = seen_;
    NoteContent(bytes);
  }
  // Whether there is a file in another state than the document's: saving may take away what others have written.
  bool ChangedExternally() const;

 private:
  // Nothing when there is no file of the name, or none that can be looked at: then isGone tells which.
  static std::optional<FileStamp> StampOf(const std::filesystem::path& path, bool* isGone = nullptr);

  std::filesystem::path path_;
  std::optional<Fingerprint> content_;  // nothing: unknown
  std::optional<FileStamp> own_;
  std::optional<FileStamp> seen_;  // nothing: the user knows that the file is gone
};

}  // namespace scrivanta
