// A file of SQLite through the library itself: no driver is needed.
#pragma once

#include <filesystem>
#include <memory>

#include "database/Database.h"

struct sqlite3;

namespace scrivanta {

enum class MissingFile { kRefused, kMade };

class SqliteDatabase final : public Database {
 public:
  // A file that is made is removed again unless a table was filled in it. Throws DatabaseError, also for a file that is
  // no database.
  SqliteDatabase(const std::filesystem::path& file, MissingFile missing);
  ~SqliteDatabase() override;

  std::vector<std::u16string> Tables(Progress& progress) override;
  std::uint64_t CountRows(std::u16string_view table, Progress& progress) override;
  std::vector<DatabaseColumn> Columns(std::u16string_view table) override;
  std::unique_ptr<RowReader> ReadTable(std::u16string_view table, Progress& progress) override;
  std::unique_ptr<RowReader> Query(std::u16string_view statement, Progress& progress) override;
  std::unique_ptr<TableFiller> Fill(const FillOrder& order, Progress& progress) override;

 private:
  struct Closer {
    void operator()(sqlite3* connection) const noexcept;
  };

  std::filesystem::path file_;
  bool removeFile_;
  std::unique_ptr<sqlite3, Closer> connection_;
};

}  // namespace scrivanta
