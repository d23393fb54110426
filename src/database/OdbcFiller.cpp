#include "database/OdbcFiller.h"

#include <algorithm>
#include <optional>

#include "database/OdbcTypes.h"
#include "database/ValueText.h"

namespace scrivanta {

namespace {

constexpr std::size_t kMostParameters = 1800;  // of a statement; the strictest of the large databases takes 2100
constexpr std::size_t kRowsOfArrays = 2000;
constexpr std::size_t kMostUnits = 1024 * 1024;  // of the texts of a block
constexpr std::size_t kShortText = 4000;         // characters, beyond which a parameter is a long one

bool IsText(SQLSMALLINT sqlType) {
  return KindOfSqlType(sqlType) == ColumnKind::kText;
}

// An element of an array as SQL writes it within braces.
void AppendElement(std::u16string_view text, std::u16string& array) {
  array += u'"';
  for (std::size_t i = text.find_first_of(u"\"\\"); i != std::u16string_view::npos; i = text.find_first_of(u"\"\\")) {
    array.append(text.substr(0, i)) += u'\\';
    array += text[i];
    text.remove_prefix(i + 1);
  }
  array.append(text) += u'"';
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
  hasChanged_ = order.makeTable || order.emptyFirst;
  const std::vector<OdbcColumn> all = OdbcColumns(connection_, table_);
  for (const DatabaseColumn& column : order.columns) {
    const auto found = std::ranges::find_if(all, [&](const OdbcColumn& c) { return c.column.name == column.name; });
    columns_.push_back(found != all.end() ? *found : OdbcColumn{column, SQL_WVARCHAR});
  }
  Use(BestForm());
}

// Arrays need a database that knows them, and the names of the columns' types.
OdbcFiller::Form OdbcFiller::BestForm() const {
  const bool haveArrays = std::ranges::none_of(columns_, [](const OdbcColumn& column) {
    return column.column.typeName.empty() || column.column.type.kind == ColumnKind::kBinary;
  });
  return haveArrays && connection_.Info(SQL_DBMS_NAME) == u"PostgreSQL" ? Form::kArrays : Form::kRows;
}

void OdbcFiller::Use(Form form) {
  form_ = form;
  block_.reset();
  rowsPerBlock_ = form == Form::kArrays ? kRowsOfArrays
                  : form == Form::kRows ? std::max<std::size_t>(1, kMostParameters / columns_.size())
                                        : 1;
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

std::u16string OdbcFiller::InsertStatement(Form form) const {
  std::u16string names;
  std::u16string marks;
  std::u16string arrays;
  for (const OdbcColumn& column : columns_) {
    const std::u16string_view comma = names.empty() ? u"" : u",";
    names.append(comma) += connection_.Quoted(column.column.name);
    marks.append(comma) += u"?";
    arrays.append(comma) += u"CAST(? AS " + connection_.Quoted(column.column.typeName) + u"[])";
  }
  std::u16string statement = u"INSERT INTO " + connection_.Quoted(table_) + u" (" + names + u") ";
  if (form == Form::kArrays) {
    return statement + u"SELECT * FROM unnest(" + arrays + u")";
  }
  statement += u"VALUES (" + marks + u")";
  for (std::size_t i = 1; form == Form::kRows && i < rowsPerBlock_; ++i) {
    statement += u",(" + marks + u")";
  }
  return statement;
}

OdbcStatement& OdbcFiller::StatementFor(Form form) {
  auto& kept = form == Form::kOneRow ? single_ : block_;
  if (kept == nullptr) {
    auto statement = std::make_unique<OdbcStatement>(connection_);
    const std::u16string insert = InsertStatement(form);
    statement->handle().Check(SQLPrepareW(statement->get(), OdbcText(insert), static_cast<SQLINTEGER>(insert.size())));
    kept = std::move(statement);
  }
  return *kept;
}

void OdbcFiller::Flush() {
  if (lines_.empty()) {
    return;
  }
  progress_.Report(lines_.back(), 0);
  if (!InsertBlock()) {
    InsertOneByOne();
  }
  cells_.clear();
  lines_.clear();
  text_.clear();
  bytes_.clear();
}

bool OdbcFiller::InsertBlock() {
  if (form_ == Form::kOneRow || (form_ == Form::kRows && lines_.size() != rowsPerBlock_)) {
    return false;
  }
  hasSavepoints_ = hasSavepoints_ && TryStatement(u"SAVEPOINT scrivanta");
  std::optional<DatabaseError> failure;
  try {
    OdbcStatement& statement = StatementFor(form_);
    if (form_ == Form::kArrays ? InsertArrays(statement) : InsertRows(statement, 0, lines_.size())) {
      hasChanged_ = true;
      return true;
    }
    failure = statement.handle().Failure();
  } catch (const DatabaseError& error) {
    failure = error;  // the statement could not even be prepared
  }
  // One of the rows is bad, which shows when they go one by one, or the database does not take this form.
  block_.reset();
  if (hasSavepoints_ && !TryStatement(u"ROLLBACK TO SAVEPOINT scrivanta")) {
    // A driver takes all of a transaction back where nothing but the savepoint would be lost.
    if (hasChanged_) {
      throw *failure;
    }
    connection_.End(false);
  }
  Use(form_ == Form::kArrays ? Form::kRows : Form::kOneRow);
  return false;
}

void OdbcFiller::InsertOneByOne() {
  for (std::size_t row = 0; row < lines_.size(); ++row) {
    OdbcStatement& statement = StatementFor(Form::kOneRow);
    if (!InsertRows(statement, row, 1)) {
      Refuse(statement, row);
    }
    hasChanged_ = true;
  }
}

bool OdbcFiller::InsertRows(OdbcStatement& statement, std::size_t firstRow, std::size_t rows) {
  const std::size_t count = columns_.size();
  for (std::size_t i = 0; i < rows * count; ++i) {
    Bind(statement, static_cast<SQLUSMALLINT>(i + 1), cells_[firstRow * count + i], columns_[i % count]);
  }
  return SQL_SUCCEEDED(SQLExecute(statement.get()));
}

bool OdbcFiller::InsertArrays(OdbcStatement& statement) {
  arrays_.resize(columns_.size());
  std::vector<SQLLEN> sizes(columns_.size());
  for (std::size_t column = 0; column < columns_.size(); ++column) {
    std::u16string& array = arrays_[column];
    array = u"{";
    for (std::size_t i = column; i < cells_.size(); i += columns_.size()) {
      array += i == column ? u"" : u",";
      if (cells_[i].isNull) {
        array += u"NULL";
      } else {
        AppendElement(std::u16string_view(text_).substr(cells_[i].begin, cells_[i].length), array);
      }
    }
    array += u'}';
    sizes[column] = static_cast<SQLLEN>(array.size() * sizeof(char16_t));
    statement.handle().Check(SQLBindParameter(statement.get(), static_cast<SQLUSMALLINT>(column + 1), SQL_PARAM_INPUT,
                                              SQL_C_WCHAR, SQL_WLONGVARCHAR, array.size(), 0, OdbcText(array),
                                              sizes[column], &sizes[column]));
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
