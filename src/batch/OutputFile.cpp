#include "batch/OutputFile.h"

namespace scrivanta {

namespace {

bool IsWrittenStraight(const std::filesystem::path& target) {
  std::error_code ignored;
  const std::filesystem::file_status status = std::filesystem::status(target, ignored);
  return std::filesystem::exists(status) && !std::filesystem::is_regular_file(status) &&
         !std::filesystem::is_directory(status);
}

}  // namespace

OutputFile::OutputFile(const std::filesystem::path& target) : target_(target) {
  if (IsWrittenStraight(target)) {
    spool_ = std::make_unique<Spool>();
  } else {
    file_ = std::make_unique<AtomicFile>(target, Durability::kAgainstKill);
  }
}

void OutputFile::Write(std::string_view bytes) {
  if (spool_ != nullptr) {
    spool_->Write(bytes);
  } else {
    file_->Write(bytes);
  }
}

std::vector<std::filesystem::path> OutputFile::Files() const {
  return file_ == nullptr ? std::vector{target_} : std::vector{target_, file_->beside()};
}

void OutputFile::Prepare() {
  if (file_ != nullptr) {
    file_->Prepare();
  }
}

void OutputFile::Commit() {
  if (file_ != nullptr) {
    file_->Commit();
    return;
  }
  FileSink sink(target_);
  CopyBytes(*spool_, sink);
  sink.Close();
}

}  // namespace scrivanta
