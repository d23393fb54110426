#include "database/OdbcFiller.h"

#include <algorithm>

#include "database/OdbcTypes.h"
#include "database/ValueText.h"

namespace scrivanta {

namespace {

constexpr std::size_t kMostParameters = 1800;    // of a statement; the strictest of the large databases takes 2100
constexpr std::size_t kMostUnits = 1024 * 1024;  // of the texts of a block
constexpr std::size_t kShortText = 4000;         // characters, beyond which a parameter is a long one

bool IsText(SQLSMALLINT sqlType) {
  return KindOfSqlType(sqlType) == ColumnKind::kText;
}

}  // namespace

OdbcFiller::OdbcFiller(OdbcConnection& connection, const FillOrder& order, Progress& progress)
    : connection_(connection), progress_(progress), table_(FindOdbcTable(connection, order.table)) {
  try {
    Begin(order);
  } catch (...) {
    RollBack();
    throw;
  }
}

OdbcFiller::~OdbcFiller() {
  if (isOpen_) {
    RollBack();
  }
}

void OdbcFiller::Begin(const FillOrder& order) {
  connection_.SetAutoCommit(false);
  isOpen_ = true;
  if (order.makeTable) {
    MakeTable(order);
  } else if (order.emptyFirst) {
    OdbcStatement(connection_).Execute(u"DELETE FROM " + connection_.Quoted(table_));
  }
  const std::vector<OdbcColumn> all = OdbcColumns(connection_, table_);
  for (const DatabaseColumn& column : order.columns) {
    const auto found = std::ranges::find_if(all, [&](const OdbcColumn& c) { return c.column.name == column.name; });
    columns_.push_back(found != all.end() ? *found : OdbcColumn{column, SQL_WVARCHAR});
  }
  rowsPerBlock_ = std::max<std::size_t>(1, kMostParameters / columns_.size());
}

void OdbcFiller::MakeTable(const FillOrder& order) {
  const std::vector<OdbcType> types = OdbcTypesOf(connection_);
  std::u16string definitions;
  for (const DatabaseColumn& column : order.columns) {
    definitions += definitions.empty() ? u"" : u", ";
    definitions += connection_.Quoted(column.name) + u" " + TypeWord(types, column.type);
  }
  OdbcStatement(connection_).Execute(u"CREATE TABLE " + connection_.Quoted(table_) + u" (" + definitions + u")");
  madeTable_ = true;
}

// A database that commits when a table is made has it still; it goes by hand.
void OdbcFiller::RollBack() noexcept {
  isOpen_ = false;
  block_.reset();
  single_.reset();
  try {
    connection_.End(false);
    connection_.SetAutoCommit(true);
    if (madeTable_ && !OdbcColumns(connection_, table_).empty()) {
      OdbcStatement(connection_).Execute(u"DROP TABLE " + connection_.Quoted(table_));
    }
  } catch (const DatabaseError&) {
    // The connection is gone, and with it the transaction.
  }
}

void OdbcFiller::Add(const DatabaseRow& row, std::uint64_t line) {
  for (std::size_t i = 0; i < row.size(); ++i) {
    Cell cell{.isNull = row.IsNull(i)};
    if (columns_[i].column.type.kind == ColumnKind::kBinary && ParseHex(row[i], hex_)) {
      cell.begin = bytes_.size();
      cell.length = hex_.size();
      bytes_ += hex_;
    } else {
      cell.begin = text_.size();
      cell.length = row[i].size();
      text_ += row[i];
    }
    cells_.push_back(cell);
  }
  lines_.push_back(line);
  if (lines_.size() == rowsPerBlock_ || text_.size() + bytes_.size() > kMostUnits) {
    Flush();
  }
}

void OdbcFiller::Commit() {
  Flush();
  block_.reset();
  single_.reset();
  connection_.End(true);
  isOpen_ = false;
  connection_.SetAutoCommit(true);
}

bool OdbcFiller::TryStatement(std::u16string_view statement) {
  const OdbcStatement tried(connection_);
  return SQL_SUCCEEDED(SQLExecDirectW(tried.get(), OdbcText(statement), static_cast<SQLINTEGER>(statement.size())));
}

std::u16string OdbcFiller::InsertStatement(std::size_t rows) const {
  std::u16string names;
  std::u16string marks;
  for (const OdbcColumn& column : columns_) {
    names += (names.empty() ? u"" : u",") + connection_.Quoted(column.column.name);
    marks += marks.empty() ? u"?" : u",?";
  }
  std::u16string statement = u"INSERT INTO " + connection_.Quoted(table_) + u" (" + names + u") VALUES ";
  for (std::size_t i = 0; i < rows; ++i) {
    statement += (i == 0 ? u"(" : u",(") + marks + u")";
  }
  return statement;
}

OdbcStatement& OdbcFiller::StatementFor(std::size_t rows) {
  const auto prepared = [this](std::size_t count) {
    auto statement = std::make_unique<OdbcStatement>(connection_);
    const std::u16string insert = InsertStatement(count);
    statement->handle().Check(SQLPrepareW(statement->get(), OdbcText(insert), static_cast<SQLINTEGER>(insert.size())));
    return statement;
  };
  auto& kept = rows == 1 ? single_ : block_;
  if (kept == nullptr) {
    kept = prepared(rows);
  }
  return *kept;
}

void OdbcFiller::Flush() {
  if (lines_.empty()) {
    return;
  }
  progress_.Report(lines_.back(), 0);
  const bool isWhole = lines_.size() == rowsPerBlock_ && rowsPerBlock_ > 1;
  if (!isWhole) {
    InsertOneByOne();
  } else {
    hasSavepoints_ = hasSavepoints_ && TryStatement(u"SAVEPOINT scrivanta");
    bool isDone = false;
    try {
      isDone = Insert(StatementFor(rowsPerBlock_), 0, lines_.size());
    } catch (const DatabaseError&) {
      // The statement with many rows could not even be prepared.
    }
    if (!isDone) {
      // One of the rows is bad, or the database takes only one row a statement.
      block_.reset();
      if (hasSavepoints_) {
        TryStatement(u"ROLLBACK TO SAVEPOINT scrivanta");
      }
      InsertOneByOne();
      rowsPerBlock_ = 1;
    }
  }
  cells_.clear();
  lines_.clear();
  text_.clear();
  bytes_.clear();
}

void OdbcFiller::InsertOneByOne() {
  for (std::size_t row = 0; row < lines_.size(); ++row) {
    OdbcStatement& statement = StatementFor(1);
    if (!Insert(statement, row, 1)) {
      Refuse(statement, row);
    }
  }
}

bool OdbcFiller::Insert(OdbcStatement& statement, std::size_t firstRow, std::size_t rows) {
  const std::size_t count = columns_.size();
  for (std::size_t i = 0; i < rows * count; ++i) {
    Bind(statement, static_cast<SQLUSMALLINT>(i + 1), cells_[firstRow * count + i], columns_[i % count]);
  }
  return SQL_SUCCEEDED(SQLExecute(statement.get()));
}

void OdbcFiller::Bind(OdbcStatement& statement, SQLUSMALLINT parameter, Cell& cell, const OdbcColumn& column) {
  const bool isBinary = column.column.type.kind == ColumnKind::kBinary;
  const std::size_t bytes = isBinary ? cell.length : cell.length * sizeof(char16_t);
  void* const data =
      isBinary ? static_cast<void*>(bytes_.data() + cell.begin) : static_cast<void*>(text_.data() + cell.begin);
  const bool isText = IsText(column.sqlType);
  const SQLSMALLINT sqlType =
      !isText ? column.sqlType : static_cast<SQLSMALLINT>(cell.length > kShortText ? SQL_WLONGVARCHAR : SQL_WVARCHAR);
  const std::size_t size = isText || isBinary ? std::max<std::size_t>(cell.length, 1) : column.size;
  cell.indicator = cell.isNull ? SQL_NULL_DATA : static_cast<SQLLEN>(bytes);
  statement.handle().Check(SQLBindParameter(statement.get(), parameter, SQL_PARAM_INPUT,
                                            static_cast<SQLSMALLINT>(isBinary ? SQL_C_BINARY : SQL_C_WCHAR), sqlType,
                                            size, column.decimals, data, static_cast<SQLLEN>(bytes), &cell.indicator));
}

void OdbcFiller::Refuse(const OdbcStatement& statement, std::size_t row) const {
  const DatabaseError failure = statement.handle().Failure();
  // What is refused because of its data: a value out of range, a constraint, or what the driver has no state for.
  const std::string kind = statement.handle().State().substr(0, 2);
  if (kind != "22" && kind != "23" && kind != "HY" && kind != "44") {
    throw failure;
  }
  throw BadRow({.line = lines_[row], .english = failure.what(), .chinese = failure.chinese()});
}

}  // namespace scrivanta
