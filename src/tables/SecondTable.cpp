#include "tables/SecondTable.h"

namespace scrivanta {

void SecondTable::Add(const RecordReader& record, KeyText& key, const std::vector<std::size_t>& columns) {
  rows_.Add(key.Of(record));
  AppendTail(record, columns, encoder_, tails_);
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

void AppendTail(const RecordReader& record, const std::vector<std::size_t>& columns, const FieldEncoder& encoder,
                std::string& tail) {
  for (const std::size_t column : columns) {
    tail.append(encoder.delimiter());
    if (!encoder.Append(record.Field(column), tail)) {
      throw RecordError(record.line(), column + 1, "a field of the second table holds a delimiter or a line break",
                        u"第二个表的字段中有分隔符或换行");
    }
  }
}

}  // namespace scrivanta
