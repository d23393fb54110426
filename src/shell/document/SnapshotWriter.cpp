#include "shell/document/SnapshotWriter.h"

#include <algorithm>
#include <utility>

namespace scrivanta {

namespace {

constexpr std::size_t kLeastPart = std::size_t{1} << 20U;  // bytes
// So many parts at most, or a snapshot of a very large document would be old when it is done.
constexpr std::size_t kMostParts = 16;

std::size_t PartOf(std::size_t bodySize) {
  const std::size_t part = std::max(kLeastPart, bodySize / kMostParts + 1);
  return part + part % 2;
}

}  // namespace

SnapshotWriter::SnapshotWriter(const std::filesystem::path& target, Snapshot snapshot)
    : snapshot_(std::move(snapshot)), file_(target), part_(PartOf(SnapshotBodySize(snapshot_))) {
  file_.Write(SnapshotHeader(snapshot_));
}

bool SnapshotWriter::WriteNext() {
  const std::string part = SnapshotBody(snapshot_, done_, part_);
  file_.Write(part);
  done_ += part.size();
  if (done_ < SnapshotBodySize(snapshot_)) {
    file_.Flush();
    return false;
  }
  file_.Commit();
  return true;
}

}  // namespace scrivanta
