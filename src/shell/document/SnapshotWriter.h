// Writes a snapshot a part at a time, so that the window can answer between the parts whatever the size of the document
// and the speed of the disk.
#pragma once

#include <cstddef>
#include <filesystem>

#include "shell/document/Snapshot.h"
#include "text/AtomicFile.h"

namespace scrivanta {

class SnapshotWriter {
 public:
  // Until the last part is written, what was at the target stays. Throws FileError, here and below.
  SnapshotWriter(const std::filesystem::path& target, Snapshot snapshot);

  // True when the snapshot is in place: nothing is to be called any more.
  bool WriteNext();

 private:
  Snapshot snapshot_;
  AtomicFile file_;
  std::size_t part_;  // bytes
  std::size_t done_ = 0;
};

}  // namespace scrivanta
