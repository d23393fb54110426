// A database as the exchange sees it: tables, rows read in pieces, a table filled in one transaction. One
// implementation reaches files of SQLite through the library, one every database that has an ODBC driver.
//
// All of them throw DatabaseError for what the database refuses, and Interrupted when the progress stops them.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "database/DatabaseRow.h"
#include "text/Interface.h"
#include "text/Progress.h"

namespace scrivanta {

enum class ColumnKind {
  kText,
  kInteger,  // whole numbers of at most 64 bits
  kReal,     // double precision
  kDecimal,
  kDate,
  kDateTime,
  kBinary,  // as text "0x" and hexadecimal digits
  kOther,   // what the database takes; an empty field is NULL
};

struct ColumnType {
  ColumnKind kind = ColumnKind::kText;
  std::size_t length = 0;  // of a column to be made: characters of a text, digits of a number; 0: unknown
  std::size_t scale = 0;   // digits of a decimal number behind its point

  bool operator==(const ColumnType&) const = default;
};

struct DatabaseColumn {
  std::u16string name;
  ColumnType type = {};
  std::u16string typeName = {};  // the database's own word
};

class RowReader : public Interface {
 public:
  // None when the statement was no query.
  const std::vector<std::u16string>& columns() const noexcept { return columns_; }
  // The next row, false at the end.
  virtual bool Next(DatabaseRow& row) = 0;

 protected:
  std::vector<std::u16string> columns_;
};

// One transaction that fills a table. Without Commit everything is as it was.
class TableFiller : public Interface {
 public:
  // A row of as many fields as there are columns; line is its place in the input, from 1, for errors. A row may be
  // refused later than it is added, at the latest by Commit. Throws BadRow.
  virtual void Add(const DatabaseRow& row, std::uint64_t line) = 0;
  virtual void Commit() = 0;
};

struct FillOrder {
  std::u16string table;
  std::vector<DatabaseColumn> columns;  // those that are filled; of a table to be made all
  bool makeTable = false;
  bool emptyFirst = false;
};

class Database : public Interface {
 public:
  // Names of tables and views as the other methods take them, in the database's order.
  virtual std::vector<std::u16string> Tables(Progress& progress) = 0;
  virtual std::uint64_t CountRows(std::u16string_view table, Progress& progress) = 0;
  // None when there is no such table.
  virtual std::vector<DatabaseColumn> Columns(std::u16string_view table) = 0;

  // Both outlive neither the database nor the progress.
  virtual std::unique_ptr<RowReader> ReadTable(std::u16string_view table, Progress& progress) = 0;
  virtual std::unique_ptr<RowReader> Query(std::u16string_view statement, Progress& progress) = 0;
  virtual std::unique_ptr<TableFiller> Fill(const FillOrder& order, Progress& progress) = 0;
};

// A name between the quotes of a database, which are doubled in it.
std::u16string QuotedName(std::u16string_view name, char16_t open = u'"', char16_t close = u'"');

}  // namespace scrivanta
