#include "database/RecordSource.h"

namespace scrivanta {

RecordSource::RecordSource(ByteSource& bytes, std::function<void()> rewind, RecordFormat format, Progress& progress)
    : bytes_(bytes), rewind_(std::move(rewind)), format_(std::move(format)), progress_(progress) {
  reader_.emplace(bytes_, format_, progress_);
}

bool RecordSource::Next(DatabaseRow& row) {
  if (!reader_->Next()) {
    return false;
  }
  row.Clear();
  for (const std::string_view field : reader_->fields()) {
    DecodeAppend(format_.encoding, field, row.text());
    row.EndField();
  }
  return true;
}

void RecordSource::Rewind() {
  rewind_();
  reader_.emplace(bytes_, format_, progress_);
}

}  // namespace scrivanta
