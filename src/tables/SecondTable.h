// The table that is held in memory while another is joined with it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "tables/KeyText.h"
#include "tables/RecordReader.h"
#include "tables/RecordWriter.h"
#include "tables/RowsByKey.h"

namespace scrivanta {

class SecondTable {
 public:
  // Keeps the rows as they stand only when they are asked for.
  SecondTable(const RecordFormat& format, bool keepsRows, const FieldEncoder& encoder)
      : splitter_(MakeFieldSplitter(format, progress_)), keepsRows_(keepsRows), encoder_(encoder) {}

  // Takes the reader's record. The chosen columns, from 0, are what comes out of it. Throws RecordError.
  void Add(const RecordReader& record, KeyText& key, const std::vector<std::size_t>& columns);

  RowsByKey& rows() noexcept { return rows_; }
  // The chosen fields of the row, each behind a delimiter.
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
  const FieldEncoder& encoder_;
  RowsByKey rows_;
  std::string tails_;
  std::vector<std::size_t> tailEnds_;
  std::string raws_;
  std::vector<std::size_t> rawEnds_;
  Fields fields_;
};

// Appends the fields in the columns, from 0, each behind a delimiter. Throws RecordError, which says that it is of the
// second table.
void AppendTail(const RecordReader& record, const std::vector<std::size_t>& columns, const FieldEncoder& encoder,
                std::string& tail);

}  // namespace scrivanta
