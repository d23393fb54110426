// The records of a text table as rows for a database.
#pragma once

#include <functional>
#include <optional>

#include "database/TableImport.h"
#include "tables/RecordReader.h"

namespace scrivanta {

class RecordSource final : public RowSource {
 public:
  // The bytes outlive the source; rewind takes them back to their beginning.
  RecordSource(ByteSource& bytes, std::function<void()> rewind, RecordFormat format, Progress& progress);

  bool Next(DatabaseRow& row) override;
  std::uint64_t line() const override { return reader_->line(); }
  void Rewind() override;

 private:
  ByteSource& bytes_;
  std::function<void()> rewind_;
  RecordFormat format_;
  Progress& progress_;
  std::optional<RecordReader> reader_;
};

}  // namespace scrivanta
