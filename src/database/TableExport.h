// Rows of a database as the records of a text table.
#pragma once

#include <cstdint>
#include <string>

#include "database/Database.h"
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

}  // namespace scrivanta
