#include "tables/SecondRows.h"

namespace scrivanta {

void SecondRows::Add(const RecordReader& record, JoinedRows& joined) {
  rows_.Add(joined.KeyOfSecond(record));
  joined.AppendTail(record, tails_);
  tailEnds_.push_back(tails_.size());
  if (keepsRows_) {
    raws_.append(record.raw());
    rawEnds_.push_back(raws_.size());
  }
}

const Fields& SecondRows::FieldsOf(std::uint32_t row) {
  fields_.clear();
  splitter_->Start(Raw(row), row, fields_);
  return fields_;
}

}  // namespace scrivanta
