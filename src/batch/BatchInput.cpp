#include "batch/BatchInput.h"

#include <vector>

namespace scrivanta {

namespace {

constexpr std::size_t kBlockSize = 256 * 1024;

}  // namespace

BatchInput::BatchInput(const std::filesystem::path& path)
    : path_(path), file_(std::make_unique<FileSource>(path)), stream_(file_.get()) {}

std::size_t BatchInput::Read(std::span<char> buffer) {
  return stream_->Read(buffer);
}

std::optional<std::uint64_t> BatchInput::Size() const {
  return stream_->Size();
}

void BatchInput::MakeRewindable(Progress& progress) {
  if (file_ != nullptr && file_->Size()) {
    return;
  }
  auto spool = std::make_unique<Spool>();
  std::vector<char> block(kBlockSize);
  while (const std::size_t count = stream_->Read(block)) {
    spool->Write({block.data(), count});
    progress.Report(0, 0);
  }
  spool_ = std::move(spool);
  stream_ = spool_.get();
}

void BatchInput::Rewind() {
  if (spool_ != nullptr) {
    spool_->Rewind();
  } else {
    file_ = std::make_unique<FileSource>(path_);
    stream_ = file_.get();
  }
}

}  // namespace scrivanta
