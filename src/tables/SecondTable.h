// The second table of a join, held in memory while the first is joined with it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "tables/JoinedRows.h"
#include "tables/RecordReader.h"
#include "tables/RowsByKey.h"

namespace scrivanta {

class SecondTable {
 public:
  // Keeps the rows as they stand only when they are asked for.
  SecondTable(const RecordFormat& format, bool keepsRows)
      : splitter_(MakeFieldSplitter(format, progress_)), keepsRows_(keepsRows) {}

  // Takes the reader's record. Throws RecordError.
  void Add(const RecordReader& record, JoinedRows& joined);

  RowsByKey& rows() noexcept { return rows_; }
  std::string_view Tail(std::uint32_t row) const { return Part(tails_, tailEnds_, row); }
  // The row as it stands, and its fields, which are valid until the next call.
  std::string_view Raw(std::uint32_t row) const { return Part(raws_, rawEnds_, row); }
  const Fields& FieldsOf(std::uint32_t row);

 private:
  static std::string_view Part(const std::string& text, const std::vector<std::size_t>& ends, std::uint32_t row) {
    const std::size_t begin = row == 0 ? 0 : ends[row - 1];
    return std::string_view(text).substr(begin, ends[row] - begin);
  }

  NoProgress progress_;
  std::unique_ptr<FieldSplitter> splitter_;
  bool keepsRows_;
  RowsByKey rows_;
  std::string tails_;
  std::vector<std::size_t> tailEnds_;
  std::string raws_;
  std::vector<std::size_t> rawEnds_;
  Fields fields_;
};

}  // namespace scrivanta
