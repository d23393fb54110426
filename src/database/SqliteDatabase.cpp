#include "database/SqliteDatabase.h"

#include "database/SqliteFiller.h"
#include "database/SqliteStatement.h"
#include "database/ValueText.h"
#include "text/Encoding.h"
#include "text/PlatformFile.h"

namespace scrivanta {

namespace {

constexpr int kBusyMilliseconds = 3000;

std::string Utf8(std::u16string_view text) {
  return Encode(Encoding::kUtf8, text);
}

std::string_view ColumnBytes(sqlite3_stmt* statement, int index) {
  const void* bytes = sqlite3_column_blob(statement, index);
  return {static_cast<const char*>(bytes), static_cast<std::size_t>(sqlite3_column_bytes(statement, index))};
}

std::u16string ColumnText(sqlite3_stmt* statement, int index) {
  return Decode(Encoding::kUtf8, ColumnBytes(statement, index));
}

void AppendField(sqlite3_stmt* statement, int index, DatabaseRow& row) {
  switch (sqlite3_column_type(statement, index)) {
    case SQLITE_NULL:
      row.AddNull();
      return;
    case SQLITE_FLOAT:
      AppendReal(sqlite3_column_double(statement, index), row.text());
      row.EndNumber();
      return;
    case SQLITE_BLOB:
      AppendHex(ColumnBytes(statement, index), row.text());
      break;
    case SQLITE_INTEGER:
      // Makes a text of it, whose bytes are then had.
      sqlite3_column_text(statement, index);
      DecodeAppend(Encoding::kUtf8, ColumnBytes(statement, index), row.text());
      row.EndNumber();
      return;
    default:
      DecodeAppend(Encoding::kUtf8, ColumnBytes(statement, index), row.text());
  }
  row.EndField();
}

class SqliteReader final : public RowReader {
 public:
  SqliteReader(sqlite3* connection, std::string_view statement, Progress& progress)
      : progress_(connection, progress), statement_(connection, statement) {
    const int count = sqlite3_column_count(statement_.get());
    for (int i = 0; i < count; ++i) {
      columns_.push_back(Decode(Encoding::kUtf8, sqlite3_column_name(statement_.get(), i)));
    }
    if (count == 0) {
      statement_.Step(&progress_);
      done_ = true;
    }
  }

  bool Next(DatabaseRow& row) override {
    if (done_ || !statement_.Step(&progress_)) {
      done_ = true;
      return false;
    }
    row.Clear();
    for (int i = 0; i < static_cast<int>(columns_.size()); ++i) {
      AppendField(statement_.get(), i, row);
    }
    return true;
  }

 private:
  SqliteProgress progress_;
  SqliteStatement statement_;
  bool done_ = false;
};

bool Contains(std::string_view text, std::string_view part) {
  return text.find(part) != std::string_view::npos;
}

// The affinity that SQLite derives from a declared type, in the same order.
ColumnKind KindOfDeclaration(std::string declared) {
  for (char& c : declared) {
    c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
  }
  if (Contains(declared, "INT")) {
    return ColumnKind::kInteger;
  }
  if (declared.empty() || Contains(declared, "CHAR") || Contains(declared, "CLOB") || Contains(declared, "TEXT")) {
    return ColumnKind::kText;
  }
  if (Contains(declared, "BLOB")) {
    return ColumnKind::kBinary;
  }
  return Contains(declared, "REAL") || Contains(declared, "FLOA") || Contains(declared, "DOUB") ? ColumnKind::kReal
                                                                                                : ColumnKind::kOther;
}

}  // namespace

void SqliteDatabase::Closer::operator()(sqlite3* connection) const noexcept {
  sqlite3_close_v2(connection);
}

SqliteDatabase::SqliteDatabase(const std::filesystem::path& file, MissingFile missing)
    : file_(file), removeFile_(missing == MissingFile::kMade && !std::filesystem::exists(file)) {
  const std::u8string name = file.u8string();
  const std::string utf8(name.begin(), name.end());
  sqlite3* connection = nullptr;
  const int code = sqlite3_open_v2(
      utf8.c_str(), &connection,
      SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_READWRITE | (missing == MissingFile::kMade ? SQLITE_OPEN_CREATE : 0), nullptr);
  connection_.reset(connection);
  if (code != SQLITE_OK) {
    const DatabaseError failure = SqliteFailure(connection);
    throw DatabaseError(utf8 + ": " + failure.what(), TextOfPath(file) + u"\n" + failure.chinese());
  }
  sqlite3_busy_timeout(connection, kBusyMilliseconds);
  try {
    SqliteStatement(connection, "SELECT COUNT(*) FROM sqlite_schema").Step();
  } catch (const DatabaseError& failure) {
    throw DatabaseError(utf8 + ": " + failure.what(), TextOfPath(file) + u"\n" + failure.chinese());
  }
}

SqliteDatabase::~SqliteDatabase() {
  connection_.reset();
  if (removeFile_) {
    RemoveFile(file_);
  }
}

std::vector<std::u16string> SqliteDatabase::Tables(Progress& progress) {
  SqliteProgress guard(connection_.get(), progress);
  SqliteStatement statement(connection_.get(),
                            "SELECT name FROM sqlite_schema WHERE type IN ('table','view') AND "
                            "name NOT LIKE 'sqlite\\_%' ESCAPE '\\' ORDER BY name");
  std::vector<std::u16string> tables;
  while (statement.Step(&guard)) {
    tables.push_back(ColumnText(statement.get(), 0));
  }
  return tables;
}

std::uint64_t SqliteDatabase::CountRows(std::u16string_view table, Progress& progress) {
  SqliteProgress guard(connection_.get(), progress);
  SqliteStatement statement(connection_.get(), "SELECT COUNT(*) FROM " + Utf8(QuotedName(table)));
  statement.Step(&guard);
  return static_cast<std::uint64_t>(sqlite3_column_int64(statement.get(), 0));
}

std::vector<DatabaseColumn> SqliteDatabase::Columns(std::u16string_view table) {
  // Hidden and generated columns, which cannot be filled, are not among them.
  SqliteStatement statement(connection_.get(), "SELECT name, type FROM pragma_table_info(?)");
  const std::string name = Utf8(table);
  sqlite3_bind_text(statement.get(), 1, name.data(), static_cast<int>(name.size()), SQLITE_STATIC);
  std::vector<DatabaseColumn> columns;
  while (statement.Step()) {
    const std::string declared(ColumnBytes(statement.get(), 1));
    columns.push_back({ColumnText(statement.get(), 0), {KindOfDeclaration(declared)}, ColumnText(statement.get(), 1)});
  }
  return columns;
}

std::unique_ptr<RowReader> SqliteDatabase::ReadTable(std::u16string_view table, Progress& progress) {
  return Query(u"SELECT * FROM " + QuotedName(table), progress);
}

std::unique_ptr<RowReader> SqliteDatabase::Query(std::u16string_view statement, Progress& progress) {
  return std::make_unique<SqliteReader>(connection_.get(), Utf8(statement), progress);
}

std::unique_ptr<TableFiller> SqliteDatabase::Fill(const FillOrder& order, Progress& progress) {
  return std::make_unique<SqliteFiller>(connection_.get(), order, progress, removeFile_);
}

}  // namespace scrivanta
