// Rows of a database as the records of a text table or the rows of a sheet.
#pragma once

#include <cstdint>
#include <string>

#include "database/Database.h"
#include "sheets/SheetFile.h"
#include "tables/RecordFormat.h"
#include "text/LineWriter.h"

namespace scrivanta {

struct ExportOptions {
  RecordFormat format = {};
  bool header = false;           // the names of the columns come first
  std::u16string nullText = {};  // what is written for NULL
};

// Writes every row that is left and returns their number; the writer is flushed by its owner. Throws RecordError for a
// field that the format cannot hold, DatabaseError, FileError, Interrupted.
std::uint64_t ExportRows(RowReader& rows, LineWriter& out, const ExportOptions& options, Progress& progress);

// The same into a sheet, the format left aside; numbers are numbers there as far as a sheet can hold them. Throws
// SheetError for more rows or longer texts than a sheet can have.
std::uint64_t ExportSheet(RowReader& rows, SheetWriter& sheet, const ExportOptions& options, Progress& progress);

}  // namespace scrivanta
