// What FrmDatabase does, without its window.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "database/Database.h"
#include "database/TableImport.h"
#include "shell/workbench/Workbench.h"
#include "tables/RecordFormat.h"
#include "text/Bytes.h"
#include "text/Interface.h"

namespace scrivanta {

// A column of names and the first rows below it, as they are shown.
struct ShownRows {
  std::vector<std::u16string> columns;
  std::vector<std::vector<std::u16string>> rows;
};

// The window's controls.
class DatabaseView : public Interface {
 public:
  virtual std::u16string Source() const = 0;  // CmbSource
  virtual void SetSource(const std::u16string& source) = 0;
  virtual void SetSources(const std::vector<std::u16string>& sources) = 0;
  virtual void SetTables(const std::vector<std::u16string>& tables) = 0;  // LstTables
  virtual int ChosenTable() const = 0;                                    // from 0; -1: none
  virtual std::u16string Statement() const = 0;                           // TxtQuery
  virtual std::u16string TargetTable() const = 0;                         // TxtTable
  virtual void SetTargetTable(const std::u16string& table) = 0;
  virtual Separation Separator() const = 0;  // CmbDelimiter
  virtual bool HasHeader() const = 0;        // ChkHeader
  virtual void SetRows(const ShownRows& rows) = 0;
  virtual void SetState(const std::u16string& text) = 0;  // LblState
};

class DatabaseDialog {
 public:
  explicit DatabaseDialog(Workbench& workbench) : workbench_(workbench) {}

  // When the window opens: the sources that were used before.
  void Start(DatabaseView& view);
  // The buttons and the list. All throw DatabaseError, FileError, RecordError and Interrupted; the database and the
  // document are then as they were.
  void Browse(DatabaseView& view);
  void Open(DatabaseView& view);
  void ChooseTable(DatabaseView& view);
  void Query(DatabaseView& view);
  void ExportToDocument(DatabaseView& view);
  void ExportToFile(DatabaseView& view);
  void ImportFromDocument(DatabaseView& view);
  void ImportFromFile(DatabaseView& view);

 private:
  // What is shown, and so what is exported.
  struct Shown {
    bool isTable = false;
    std::u16string text;  // the table's name, or the query
  };

  Database& Opened() const;
  void Connect(std::u16string_view text);
  void Remember(DatabaseView& view, std::u16string_view source);
  void ListTables(DatabaseView& view, Progress& progress);
  const Shown& RequireShown() const;
  std::unique_ptr<RowReader> ReadShown(Progress& progress) const;
  void Preview(DatabaseView& view, RowReader& rows, std::u16string_view what) const;
  std::string Exported(DatabaseView& view, Separation separation, std::uint64_t& count) const;
  // Both return how many rows there were.
  std::uint64_t ExportToText(DatabaseView& view, ByteSink& sink, Separation separation, Progress& progress) const;
  std::uint64_t ExportToSheet(DatabaseView& view, ByteSink& sink, Progress& progress) const;
  // The rows from their beginning, each time.
  using OpenRows = std::function<std::unique_ptr<RowSource>(Progress&)>;
  void ImportText(DatabaseView& view, std::u16string_view text, Separation separation);
  void Import(DatabaseView& view, const OpenRows& open);
  // Nothing when the user does not want it.
  std::optional<ImportOptions> Confirm(const ColumnMatch& match, ImportOptions options) const;

  Workbench& workbench_;
  std::unique_ptr<Database> database_;
  std::vector<std::u16string> tables_;
  std::optional<Shown> shown_;
};

}  // namespace scrivanta
