// Any database that has an ODBC driver.
#pragma once

#include <memory>
#include <string>

#include "database/Database.h"

namespace scrivanta {

class OdbcConnection;

class OdbcDatabase final : public Database {
 public:
  // A connection string as ODBC has it: "DRIVER=PostgreSQL Unicode;Server=...;Database=...", or "DSN=...". Throws
  // DatabaseError.
  explicit OdbcDatabase(std::u16string_view connectionString);
  ~OdbcDatabase() override;

  std::vector<std::u16string> Tables(Progress& progress) override;
  std::uint64_t CountRows(std::u16string_view table, Progress& progress) override;
  std::vector<DatabaseColumn> Columns(std::u16string_view table) override;
  std::unique_ptr<RowReader> ReadTable(std::u16string_view table, Progress& progress) override;
  std::unique_ptr<RowReader> Query(std::u16string_view statement, Progress& progress) override;
  std::unique_ptr<TableFiller> Fill(const FillOrder& order, Progress& progress) override;

 private:
  std::unique_ptr<OdbcConnection> connection_;
};

// The names of the drivers that the system has.
std::vector<std::u16string> OdbcDrivers();

}  // namespace scrivanta
