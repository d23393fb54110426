// Sheets (xlsx, ECMA-376): one sheet written, sheets of any maker read.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "text/Bytes.h"
#include "text/ExplainedError.h"
#include "text/Progress.h"

namespace scrivanta {

// What the form allows.
inline constexpr std::size_t kLongestSheetCell = 32767;  // UTF-16 units
inline constexpr std::size_t kMostSheetRows = 1048576;
inline constexpr std::size_t kMostSheetColumns = 16384;

// What is wrong with a sheet file. Names sheet and cell where it is about one.
class SheetError : public ExplainedError {
 public:
  using ExplainedError::ExplainedError;
};

// "B3" of a row and a column from 0.
std::string SheetCellName(std::size_t row, std::size_t column);

struct SheetOptions {
  std::u16string_view name;  // at most 31 characters, none of []:*?/\ among them
  bool header = true;        // the first row is one, and stays in view
};

// Writes a new file row by row, with memory for one row: columns are wide enough to read, a cell is a text and stays
// one when it is changed.
class SheetWriter {
 public:
  // Nothing may stand at the path that is needed.
  SheetWriter(const std::filesystem::path& path, const SheetOptions& options);
  SheetWriter(const SheetWriter&) = delete;
  SheetWriter& operator=(const SheetWriter&) = delete;
  ~SheetWriter();

  // UTF-8, LF for line breaks. Throws SheetError for what the form does not allow.
  void WriteRow(std::span<const std::string> cells);
  // The same, one cell after another. A number that a sheet would round is written as a text.
  void AddCell(std::string_view text);
  void AddNumber(std::string_view number);
  void EndRow();
  // Writes the file. Throws FileError.
  void Close();

 private:
  class Book;

  void CheckPlace() const;

  std::filesystem::path path_;
  std::unique_ptr<Book> book_;
  std::size_t row_ = 0;
  std::size_t column_ = 0;
};

// A sheet can only be written to a path: this writes it into the folder and from there into the sink, and leaves
// nothing in the folder.
void WriteSheetTo(ByteSink& sink, const std::filesystem::path& folder, const SheetOptions& options,
                  const std::function<void(SheetWriter&)>& fill);

// One row of a sheet as texts; an empty text where there is no cell.
struct SheetRow {
  std::size_t row = 0;  // from 0
  std::vector<std::string> cells;
};

// How much a file may make of itself when it is unpacked.
struct SheetLimits {
  std::uint64_t entryBytes = 256 * 1024 * 1024;
  std::uint64_t ratio = 250;  // of an entry of more than 16 MiB to what it takes in the file
  std::size_t cells = 5'000'000;
};

struct Sheet {
  std::string name;
  std::vector<SheetRow> rows;  // those that hold something, in order
};

// The first sheet of a book. Numbers come in as many digits as they need and never with an exponent, dates as
// 2024-02-29 and 2024-02-29 13:05:00. Throws SheetError, Interrupted.
Sheet ReadFirstSheet(std::string_view bytes, Progress& progress, const SheetLimits& limits = {});

}  // namespace scrivanta
