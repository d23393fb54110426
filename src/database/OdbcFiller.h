// Fills a table through ODBC in one transaction, many rows a statement where the database takes that.
//
// There are three ways to say many rows, each an order of magnitude cheaper than the next where it is understood: each
// column as one parameter that is an array, each field as a parameter, and one row a statement.
#pragma once

#include <memory>

#include "database/OdbcCatalog.h"

namespace scrivanta {

class OdbcFiller final : public TableFiller {
 public:
  OdbcFiller(OdbcConnection& connection, const FillOrder& order, Progress& progress);
  ~OdbcFiller() override;

  void Add(const DatabaseRow& row, std::uint64_t line) override;
  void Commit() override;

 private:
  enum class Form { kArrays, kRows, kOneRow };
  struct Cell {
    std::size_t begin = 0;   // in text_ or bytes_
    std::size_t length = 0;  // units or bytes
    bool isNull = false;
    SQLLEN indicator = 0;
  };

  void Begin(const FillOrder& order);
  void MakeTable(const FillOrder& order);
  void RollBack() noexcept;
  bool TryStatement(std::u16string_view statement);
  Form BestForm() const;
  void Use(Form form);
  std::u16string InsertStatement(Form form) const;
  OdbcStatement& StatementFor(Form form);
  void Flush();
  bool InsertBlock();
  void InsertOneByOne();
  bool InsertRows(OdbcStatement& statement, std::size_t firstRow, std::size_t rows);
  bool InsertArrays(OdbcStatement& statement);
  void Bind(OdbcStatement& statement, SQLUSMALLINT parameter, Cell& cell, const OdbcColumn& column);
  [[noreturn]] void Refuse(const OdbcStatement& statement, std::size_t row) const;

  OdbcConnection& connection_;
  Progress& progress_;
  OdbcTableName table_;
  std::vector<OdbcColumn> columns_;
  Form form_ = Form::kOneRow;  // of a block
  std::size_t rowsPerBlock_ = 1;
  bool hasSavepoints_ = true;
  bool hasChanged_ = false;  // the database, in this transaction
  bool madeTable_ = false;
  bool isOpen_ = false;
  std::unique_ptr<OdbcStatement> block_;   // of the block's form
  std::unique_ptr<OdbcStatement> single_;  // for one row

  // The block that is being gathered.
  std::vector<Cell> cells_;
  std::vector<std::uint64_t> lines_;
  std::u16string text_;
  std::string bytes_;
  std::string hex_;
  std::vector<std::u16string> arrays_;  // of the columns
};

}  // namespace scrivanta
