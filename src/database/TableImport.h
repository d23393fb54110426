// Records into a table of a database: an existing one, or one that is made for them.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "database/Database.h"

namespace scrivanta {

// Where the rows come from. It is read twice when a table is made whose types are to be found.
class RowSource : public Interface {
 public:
  // The next record, false at the end. Throws FileError, Interrupted.
  virtual bool Next(DatabaseRow& row) = 0;
  // The line of the input, from 1, on which the record begins.
  virtual std::uint64_t line() const = 0;
  virtual void Rewind() = 0;
};

struct ImportOptions {
  std::u16string table;
  bool header = false;  // the first record names the columns
  // Of a table that is there: empties it first, within the same transaction.
  bool replace = false;
  // A field of this text is NULL. Without it an empty field is NULL where its column is no text.
  std::optional<std::u16string> nullText = {};
  // Of a table to be made, column by column; empty: found in the data.
  std::vector<ColumnType> types = {};
};

// Where the columns of the input go. Names are compared exactly, then without regard to case.
struct ColumnMatch {
  bool makesTable = false;
  std::vector<DatabaseColumn> columns;         // one a field
  std::vector<std::u16string> unknown = {};    // header names that the table does not have, or has twice
  std::vector<std::u16string> notFilled = {};  // columns of the table that no field goes to
};
ColumnMatch MatchColumns(const std::vector<DatabaseColumn>& columns, const std::vector<std::u16string>& header);

// What ImportRows would do, from the first record; rewinds the source.
ColumnMatch PlanImport(Database& database, RowSource& source, const ImportOptions& options);

// The number of rows. A line without anything is passed over where there are several columns. Throws BadRow,
// DatabaseError, Interrupted: the database is then as it was.
std::uint64_t ImportRows(Database& database, RowSource& source, const ImportOptions& options, Progress& progress);

}  // namespace scrivanta
