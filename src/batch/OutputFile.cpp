#include "batch/OutputFile.h"

namespace scrivanta {

namespace {

bool IsWrittenStraight(const std::filesystem::path& target) {
  std::error_code ignored;
  const std::filesystem::file_status status = std::filesystem::status(target, ignored);
  return std::filesystem::exists(status) && !std::filesystem::is_regular_file(status);
}

}  // namespace

OutputFile::OutputFile(const std::filesystem::path& target) : target_(target) {
  if (std::filesystem::is_directory(target)) {
    throw FileError(target, std::make_error_code(std::errc::is_a_directory));
  }
  if (IsWrittenStraight(target)) {
    spool_ = std::make_unique<Spool>();
    return;
  }
  if (std::filesystem::is_symlink(target)) {
    target_ = std::filesystem::weakly_canonical(target);
  }
  beside_ = target_;
  beside_ += ".scrivanta-new";
  file_ = std::make_unique<FileSink>(beside_);
}

OutputFile::~OutputFile() {
  file_.reset();
  if (!beside_.empty()) {
    std::error_code ignored;
    std::filesystem::remove(beside_, ignored);
  }
}

void OutputFile::Write(std::string_view bytes) {
  if (spool_ != nullptr) {
    spool_->Write(bytes);
  } else {
    file_->Write(bytes);
  }
}

void OutputFile::Prepare() {
  if (file_ != nullptr) {
    file_->Close();
  }
}

void OutputFile::Commit() {
  if (spool_ != nullptr) {
    FileSink sink(target_);
    CopyBytes(*spool_, sink);
    sink.Close();
    return;
  }
  std::error_code code;
  std::filesystem::rename(beside_, target_, code);
  if (code) {
    throw FileError(target_, code);
  }
  beside_.clear();
}

}  // namespace scrivanta
