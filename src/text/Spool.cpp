#include "text/Spool.h"

#include <algorithm>
#include <cerrno>
#include <vector>

#include "text/PlatformFile.h"
#include "text/TemporaryName.h"
#include "text/WriteAll.h"

namespace scrivanta {

namespace {

constexpr std::size_t kBlockSize = 256 * 1024;

}  // namespace

TemporaryFile::TemporaryFile(const std::filesystem::path& folder) {
  do {
    path_ = folder / TemporaryName();
    file_.reset(OpenFile(path_, OpenMode::kCreate));
  } while (!file_ && errno == EEXIST);
  if (!file_) {
    throw FileError(path_, LastFileError());
  }
  // Where an open file can be removed it is out of the way at once, even if the program is killed; elsewhere the
  // destructor removes it.
  std::error_code ignored;
  std::filesystem::remove(path_, ignored);
}

TemporaryFile::~TemporaryFile() {
  file_.reset();
  std::error_code ignored;
  std::filesystem::remove(path_, ignored);
}

void Spool::Write(std::string_view bytes) {
  if (file_ == nullptr && memory_.size() + bytes.size() <= memoryLimit_) {
    memory_.append(bytes);
  } else {
    if (file_ == nullptr) {
      file_ = std::make_unique<TemporaryFile>(folder_);
      WriteToFile(memory_);
      memory_ = {};
    }
    WriteToFile(bytes);
  }
  size_ += bytes.size();
}

void Spool::WriteToFile(std::string_view bytes) {
  WriteAll(file_->get(), bytes, file_->path());
}

std::size_t Spool::Read(std::span<char> buffer) {
  if (readPosition_ == 0) {
    Rewind();
  }
  std::size_t count = 0;
  if (file_ == nullptr) {
    count = memory_.copy(buffer.data(), buffer.size(), static_cast<std::size_t>(readPosition_));
  } else {
    count = std::fread(buffer.data(), 1, buffer.size(), file_->get());
    if (count == 0 && std::ferror(file_->get()) != 0) {
      throw FileError(file_->path(), LastFileError());
    }
  }
  readPosition_ += count;
  return count;
}

void Spool::Rewind() {
  readPosition_ = 0;
  if (file_ != nullptr && std::fseek(file_->get(), 0, SEEK_SET) != 0) {
    throw FileError(file_->path(), LastFileError());
  }
}

void CopyBytes(ByteSource& source, ByteSink& sink) {
  std::vector<char> block(kBlockSize);
  while (const std::size_t count = source.Read(block)) {
    sink.Write({block.data(), count});
  }
}

}  // namespace scrivanta
