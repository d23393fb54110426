// A database that the companion program opens: it is 32-bit where this one is 64-bit, and sees the drivers of its kind.
#pragma once

#include <filesystem>

#include "database/CompanionProcess.h"
#include "database/Database.h"
#include "database/PipeMessage.h"

namespace scrivanta {

class PipeDatabase final : public Database {
 public:
  // Starts the companion. Throws FileError.
  explicit PipeDatabase(const std::filesystem::path& companion);

  // The drivers that the companion sees.
  std::vector<std::u16string> Drivers();
  // As the functions of these names do it here.
  void MakeJetFile(std::u16string_view driver, const std::filesystem::path& file);
  void Open(std::u16string_view connectionString);

  std::vector<std::u16string> Tables(Progress& progress) override;
  std::uint64_t CountRows(std::u16string_view table, Progress& progress) override;
  std::vector<DatabaseColumn> Columns(std::u16string_view table) override;
  std::unique_ptr<RowReader> ReadTable(std::u16string_view table, Progress& progress) override;
  std::unique_ptr<RowReader> Query(std::u16string_view statement, Progress& progress) override;
  std::unique_ptr<TableFiller> Fill(const FillOrder& order, Progress& progress) override;

  // The answer to a request. What the companion reports while it works goes to the progress. Throws what has failed
  // there.
  PipeMessage Ask(const PipeMessage& request, Progress& progress);

 private:
  CompanionProcess process_;
  PipeChannel channel_;
};

}  // namespace scrivanta
