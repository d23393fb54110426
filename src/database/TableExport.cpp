#include "database/TableExport.h"

#include <vector>

#include "tables/RecordWriter.h"

namespace scrivanta {

namespace {

constexpr std::uint64_t kRowsPerReport = 256;

// One record after another, in memory that is kept.
class RowWriter {
 public:
  RowWriter(LineWriter& out, const RecordFormat& format) : writer_(out, format), encoding_(format.encoding) {}

  void Add(std::u16string_view field) {
    EncodeAppend(encoding_, field, bytes_);
    ends_.push_back(bytes_.size());
  }
  // The number, from 1, is what an error names.
  void End(std::uint64_t number) {
    std::size_t begin = 0;
    for (const std::size_t end : ends_) {
      fields_.push_back(std::string_view(bytes_).substr(begin, end - begin));
      begin = end;
    }
    writer_.Write(fields_, number);
    fields_.clear();
    ends_.clear();
    bytes_.clear();
  }

 private:
  RecordWriter writer_;
  Encoding encoding_;
  std::string bytes_;
  std::vector<std::size_t> ends_;
  std::vector<std::string_view> fields_;
};

}  // namespace

std::uint64_t ExportRows(RowReader& rows, LineWriter& out, const ExportOptions& options, Progress& progress) {
  if (rows.columns().empty()) {
    return 0;
  }
  RowWriter writer(out, options.format);
  std::uint64_t number = 0;
  if (options.header) {
    for (const std::u16string& name : rows.columns()) {
      writer.Add(name);
    }
    writer.End(1);
  }
  DatabaseRow row;
  while (rows.Next(row)) {
    ++number;
    for (std::size_t i = 0; i < row.size(); ++i) {
      writer.Add(row.IsNull(i) ? std::u16string_view(options.nullText) : row[i]);
    }
    writer.End(number + (options.header ? 1 : 0));
    if (number % kRowsPerReport == 0) {
      progress.Report(number, 0);
    }
  }
  return number;
}

std::uint64_t ExportSheet(RowReader& rows, SheetWriter& sheet, const ExportOptions& options, Progress& progress) {
  std::string bytes;
  const auto inUtf8 = [&bytes](std::u16string_view text) -> const std::string& {
    bytes.clear();
    EncodeAppend(Encoding::kUtf8, text, bytes);
    std::erase(bytes, '\r');  // a cell's lines end with LF
    return bytes;
  };
  if (options.header) {
    for (const std::u16string& name : rows.columns()) {
      sheet.AddCell(inUtf8(name));
    }
    sheet.EndRow();
  }
  DatabaseRow row;
  std::uint64_t number = 0;
  while (rows.Next(row)) {
    for (std::size_t i = 0; i < row.size(); ++i) {
      if (row.IsNumber(i)) {
        sheet.AddNumber(inUtf8(row[i]));
      } else {
        sheet.AddCell(inUtf8(row.IsNull(i) ? std::u16string_view(options.nullText) : row[i]));
      }
    }
    sheet.EndRow();
    if (++number % kRowsPerReport == 0) {
      progress.Report(number, 0);
    }
  }
  return number;
}

}  // namespace scrivanta
