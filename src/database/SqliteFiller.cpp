#include "database/SqliteFiller.h"

#include <charconv>

#include "database/ValueText.h"
#include "text/Encoding.h"

namespace scrivanta {

namespace {

std::string Utf8(std::u16string_view text) {
  return Encode(Encoding::kUtf8, text);
}

// Column types are free words here; these give the value the form in which it comes back as it was.
std::string_view TypeWord(ColumnKind kind) {
  switch (kind) {
    case ColumnKind::kInteger:
      return "INTEGER";
    case ColumnKind::kReal:
      return "REAL";
    case ColumnKind::kDate:
      return "DATE";
    case ColumnKind::kDateTime:
      return "DATETIME";
    case ColumnKind::kBinary:
      return "BLOB";
    // There are no decimal numbers here: those of many digits would be rounded.
    case ColumnKind::kDecimal:
    case ColumnKind::kText:
    case ColumnKind::kOther:
      break;
  }
  return "TEXT";
}

std::string InsertStatement(const FillOrder& order) {
  std::string names;
  std::string marks;
  for (const DatabaseColumn& column : order.columns) {
    names += (names.empty() ? "" : ",") + Utf8(QuotedName(column.name));
    marks += marks.empty() ? "?" : ",?";
  }
  return "INSERT INTO " + Utf8(QuotedName(order.table)) + " (" + names + ") VALUES (" + marks + ")";
}

template <typename Number>
bool ReadWhole(std::string_view text, Number& number) {
  const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
  return result.ec == std::errc() && result.ptr == text.data() + text.size();
}

// A number is given as one: the library takes longer to read it. A text must stay where it is until the row is added.
int BindField(sqlite3_stmt* statement, int parameter, std::string_view field, ColumnKind kind) {
  std::int64_t whole = 0;
  if (kind == ColumnKind::kInteger && ReadWhole(field, whole)) {
    return sqlite3_bind_int64(statement, parameter, whole);
  }
  double real = 0;
  if (kind == ColumnKind::kReal && ReadWhole(field, real)) {
    return sqlite3_bind_double(statement, parameter, real);
  }
  return sqlite3_bind_text64(statement, parameter, field.data(), field.size(), SQLITE_STATIC, SQLITE_UTF8);
}

}  // namespace

SqliteFiller::SqliteFiller(sqlite3* connection, const FillOrder& order, Progress& progress, bool& removeFile)
    : connection_(connection), order_(order), progress_(connection, progress), removeFile_(removeFile) {
  Execute("BEGIN IMMEDIATE");
  isOpen_ = true;
  try {
    if (order_.makeTable) {
      MakeTable();
    } else if (order_.emptyFirst) {
      Execute("DELETE FROM " + Utf8(QuotedName(order_.table)));
    }
    insert_ = std::make_unique<SqliteStatement>(connection_, InsertStatement(order_));
  } catch (...) {
    sqlite3_exec(connection_, "ROLLBACK", nullptr, nullptr, nullptr);
    throw;
  }
}

SqliteFiller::~SqliteFiller() {
  insert_.reset();
  if (isOpen_) {
    sqlite3_exec(connection_, "ROLLBACK", nullptr, nullptr, nullptr);
  }
}

void SqliteFiller::Execute(std::string_view statement) {
  SqliteStatement(connection_, statement).Step(&progress_);
}

void SqliteFiller::MakeTable() {
  std::string definitions;
  for (const DatabaseColumn& column : order_.columns) {
    definitions += definitions.empty() ? "" : ", ";
    definitions += Utf8(QuotedName(column.name)) + " ";
    definitions += TypeWord(column.type.kind);
  }
  Execute("CREATE TABLE " + Utf8(QuotedName(order_.table)) + " (" + definitions + ")");
}

void SqliteFiller::Add(const DatabaseRow& row, std::uint64_t line) {
  bytes_.clear();
  ends_.clear();
  for (std::size_t i = 0; i < row.size(); ++i) {
    EncodeAppend(Encoding::kUtf8, row[i], bytes_);
    ends_.push_back(bytes_.size());
  }
  for (std::size_t i = 0; i < row.size(); ++i) {
    Bind(static_cast<int>(i), row);
  }
  sqlite3_stmt* const statement = insert_->get();
  const int code = sqlite3_step(statement);
  if (code != SQLITE_DONE) {
    progress_.Rethrow();
    Refuse(row, line);
  }
  sqlite3_reset(statement);
}

void SqliteFiller::Bind(int index, const DatabaseRow& row) {
  const auto i = static_cast<std::size_t>(index);
  sqlite3_stmt* const statement = insert_->get();
  int code = SQLITE_OK;
  if (row.IsNull(i)) {
    code = sqlite3_bind_null(statement, index + 1);
  } else if (order_.columns[i].type.kind == ColumnKind::kBinary && ParseHex(row[i], blob_)) {
    code = sqlite3_bind_blob64(statement, index + 1, blob_.data(), blob_.size(), SQLITE_TRANSIENT);
  } else {
    const std::size_t begin = i == 0 ? 0 : ends_[i - 1];
    const std::string_view field = std::string_view(bytes_).substr(begin, ends_[i] - begin);
    code = BindField(statement, index + 1, field, order_.columns[i].type.kind);
  }
  if (code != SQLITE_OK) {
    throw SqliteFailure(connection_);
  }
}

void SqliteFiller::Refuse(const DatabaseRow& row, std::uint64_t line) {
  const DatabaseError failure = SqliteFailure(connection_);
  if (sqlite3_errcode(connection_) != SQLITE_CONSTRAINT && sqlite3_errcode(connection_) != SQLITE_MISMATCH &&
      sqlite3_errcode(connection_) != SQLITE_TOOBIG) {
    throw failure;
  }
  RowRefusal refusal{.line = line, .english = failure.what(), .chinese = failure.chinese()};
  // "NOT NULL constraint failed: table.column"
  const std::string_view message = failure.what();
  for (std::size_t i = 0; i < row.size(); ++i) {
    const std::string& name = "." + Utf8(order_.columns[i].name);
    if (message.ends_with(name)) {
      refusal.column = i + 1;
      refusal.columnName = order_.columns[i].name;
    }
  }
  throw BadRow(refusal);
}

void SqliteFiller::Commit() {
  insert_.reset();
  Execute("COMMIT");
  isOpen_ = false;
  removeFile_ = false;
}

}  // namespace scrivanta
