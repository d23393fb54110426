#include "batch/BatchInput.h"

#include <vector>

namespace scrivanta {

namespace {

constexpr std::size_t kBlockSize = 256 * 1024;

}  // namespace

ByteSource& BatchInput::Stream() const {
  if (stream_ != nullptr) {
    return *stream_;
  }
  if (file_ == nullptr) {
    file_ = std::make_unique<FileSource>(path_);
  }
  return *file_;
}

std::size_t BatchInput::Read(std::span<char> buffer) {
  return Stream().Read(buffer);
}

std::optional<std::uint64_t> BatchInput::Size() const {
  return Stream().Size();
}

void BatchInput::MakeRewindable(Progress& progress) {
  if (!path_.empty() && Size()) {
    return;
  }
  auto spool = std::make_unique<Spool>();
  std::vector<char> block(kBlockSize);
  while (const std::size_t count = Read(block)) {
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
  }
}

}  // namespace scrivanta
