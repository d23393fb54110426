// The rows of a sheet as rows for a database.
#pragma once

#include <cstddef>

#include "database/TableImport.h"
#include "sheets/SheetFile.h"

namespace scrivanta {

// Empty cells at the end of a row are not in a sheet: every row has at least as many fields as the first one. A longer
// one is refused by the import.
class SheetSource final : public RowSource {
 public:
  // The sheet outlives the source.
  explicit SheetSource(const Sheet& sheet) : sheet_(sheet) {}

  bool Next(DatabaseRow& row) override;
  std::uint64_t line() const override { return next_ == 0 ? 0 : sheet_.rows[next_ - 1].row + 1; }
  void Rewind() override { next_ = 0; }

 private:
  const Sheet& sheet_;
  std::size_t next_ = 0;
};

}  // namespace scrivanta
