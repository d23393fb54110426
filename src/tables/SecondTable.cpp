#include "tables/SecondTable.h"

namespace scrivanta {

void SecondTable::Add(const RecordReader& record, JoinedRows& joined) {
  rows_.Add(joined.KeyOfSecond(record));
  joined.AppendTail(record, tails_);
  tailEnds_.push_back(tails_.size());
  if (keepsRows_) {
    raws_.append(record.raw());
    rawEnds_.push_back(raws_.size());
  }
}

const Fields& SecondTable::FieldsOf(std::uint32_t row) {
  fields_.clear();
  splitter_->Start(Raw(row), row, fields_);
  return fields_;
}

}  // namespace scrivanta
