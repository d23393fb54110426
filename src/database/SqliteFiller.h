// Fills a table of an SQLite file in one transaction.
#pragma once

#include "database/Database.h"
#include "database/SqliteStatement.h"

namespace scrivanta {

class SqliteFiller final : public TableFiller {
 public:
  // A file that was made for the table is to be kept once the transaction is committed.
  SqliteFiller(sqlite3* connection, const FillOrder& order, Progress& progress, bool& removeFile);
  ~SqliteFiller() override;

  void Add(const DatabaseRow& row, std::uint64_t line) override;
  void Commit() override;

 private:
  void Execute(std::string_view statement);
  void MakeTable();
  void Bind(int index, const DatabaseRow& row);
  [[noreturn]] void Refuse(const DatabaseRow& row, std::uint64_t line);

  sqlite3* connection_;
  FillOrder order_;
  SqliteProgress progress_;
  bool& removeFile_;
  std::unique_ptr<SqliteStatement> insert_;
  std::string bytes_;              // of the row that is being added
  std::vector<std::size_t> ends_;  // of its fields
  std::string blob_;
  bool isOpen_ = false;
};

}  // namespace scrivanta
