// The folder in which one instance of the program keeps the snapshot of its document. While the instance lives, nobody
// else takes the folder; when it has died, the next one may.
#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <vector>

#include "shell/document/Snapshot.h"
#include "text/FileClaim.h"

namespace scrivanta {

class RecoveryPlace {
 public:
  // A new folder below the one that all instances share. Throws FileError.
  static RecoveryPlace Make(const std::filesystem::path& root);
  // Nothing while another instance has the folder, or when there is none.
  static std::optional<RecoveryPlace> Take(const std::filesystem::path& folder);
  // All that have been left behind with a snapshot, the oldest first; what else the dead have left is removed.
  static std::vector<RecoveryPlace> TakeLeftBehind(const std::filesystem::path& root);

  RecoveryPlace(RecoveryPlace&& other) noexcept = default;
  RecoveryPlace& operator=(RecoveryPlace&& other) noexcept;
  RecoveryPlace(const RecoveryPlace&) = delete;
  RecoveryPlace& operator=(const RecoveryPlace&) = delete;
  // A snapshot stays.
  ~RecoveryPlace();

  // Where the snapshot is, or is to be put.
  std::filesystem::path SnapshotPath() const;
  static bool IsSnapshotPath(const std::filesystem::path& root, const std::filesystem::path& path);
  bool HasSnapshot() const;
  // Nothing when there is none, or it cannot be read.
  std::optional<Snapshot> Read() const;
  void RemoveSnapshot() const;

 private:
  RecoveryPlace(std::filesystem::path folder, std::unique_ptr<FileClaim> claim);
  void Leave();
  void RemoveUnfinished() const;

  std::filesystem::path folder_;
  std::unique_ptr<FileClaim> claim_;  // null once the place has been moved from
};

}  // namespace scrivanta
