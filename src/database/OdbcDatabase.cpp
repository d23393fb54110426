#include "database/OdbcDatabase.h"

#include "database/OdbcCatalog.h"
#include "database/OdbcFiller.h"
#include "database/OdbcTypes.h"
#include "database/ValueText.h"

namespace scrivanta {

namespace {

constexpr std::uint64_t kRowsPerReport = 256;

bool IsNumber(SQLSMALLINT type) {
  const ColumnKind kind = KindOfSqlType(type);
  return kind == ColumnKind::kInteger || kind == ColumnKind::kReal || kind == ColumnKind::kDecimal;
}

class OdbcReader final : public RowReader {
 public:
  OdbcReader(const OdbcConnection& connection, std::u16string_view statement, Progress& progress)
      : progress_(progress), statement_(connection) {
    statement_.Execute(statement);
    SQLSMALLINT count = 0;
    statement_.handle().Check(SQLNumResultCols(statement_.get(), &count));
    for (SQLSMALLINT i = 1; i <= count; ++i) {
      Describe(static_cast<SQLUSMALLINT>(i));
    }
  }

  bool Next(DatabaseRow& row) override {
    if (columns_.empty() || !statement_.Fetch()) {
      return false;
    }
    row.Clear();
    for (std::size_t i = 0; i < types_.size(); ++i) {
      if (!AppendValue(static_cast<SQLUSMALLINT>(i + 1), types_[i], row.text())) {
        row.AddNull();
      } else if (IsNumber(types_[i])) {
        row.EndNumber();
      } else {
        row.EndField();
      }
    }
    if (++rows_ % kRowsPerReport == 0) {
      progress_.Report(rows_, 0);
    }
    return true;
  }

 private:
  void Describe(SQLUSMALLINT column) {
    SQLWCHAR name[512] = {};
    SQLSMALLINT length = 0;
    SQLSMALLINT type = 0;
    SQLULEN size = 0;
    SQLSMALLINT decimals = 0;
    SQLSMALLINT nullable = 0;
    statement_.handle().Check(
        SQLDescribeColW(statement_.get(), column, name, 512, &length, &type, &size, &decimals, &nullable));
    columns_.emplace_back(reinterpret_cast<const char16_t*>(name));
    types_.push_back(type);
  }

  bool AppendValue(SQLUSMALLINT column, SQLSMALLINT type, std::u16string& text) {
    switch (KindOfSqlType(type)) {
      case ColumnKind::kReal:
        return AppendNumber(column, type, text);
      case ColumnKind::kBinary: {
        bytes_.clear();
        const bool isThere = statement_.AppendBytes(column, bytes_);
        if (isThere) {
          AppendHex(bytes_, text);
        }
        return isThere;
      }
      default:
        return statement_.AppendText(column, text);
    }
  }

  // As the shortest text, whatever the driver would write.
  bool AppendNumber(SQLUSMALLINT column, SQLSMALLINT type, std::u16string& text) {
    double value = 0;
    SQLLEN length = 0;
    statement_.handle().Check(SQLGetData(statement_.get(), column, SQL_C_DOUBLE, &value, sizeof value, &length));
    if (length == SQL_NULL_DATA) {
      return false;
    }
    if (type == SQL_REAL) {
      AppendReal(static_cast<float>(value), text);
    } else {
      AppendReal(value, text);
    }
    return true;
  }

  Progress& progress_;
  OdbcStatement statement_;
  std::vector<SQLSMALLINT> types_;
  std::string bytes_;
  std::uint64_t rows_ = 0;
};

}  // namespace

OdbcDatabase::OdbcDatabase(std::u16string_view connectionString)
    : connection_(std::make_unique<OdbcConnection>(connectionString)) {}

OdbcDatabase::~OdbcDatabase() = default;

std::vector<std::u16string> OdbcDatabase::Tables(Progress&) {
  std::vector<std::u16string> names;
  for (const OdbcTableName& table : OdbcTables(*connection_)) {
    names.push_back(ShownName(table));
  }
  return names;
}

std::uint64_t OdbcDatabase::CountRows(std::u16string_view table, Progress&) {
  OdbcStatement statement(*connection_);
  statement.Execute(u"SELECT COUNT(*) FROM " + connection_->Quoted(FindOdbcTable(*connection_, table)));
  statement.Fetch();
  return static_cast<std::uint64_t>(statement.Number(1));
}

std::vector<DatabaseColumn> OdbcDatabase::Columns(std::u16string_view table) {
  std::vector<DatabaseColumn> columns;
  for (const OdbcColumn& column : OdbcColumns(*connection_, FindOdbcTable(*connection_, table))) {
    columns.push_back(column.column);
  }
  return columns;
}

std::unique_ptr<RowReader> OdbcDatabase::ReadTable(std::u16string_view table, Progress& progress) {
  return Query(u"SELECT * FROM " + connection_->Quoted(FindOdbcTable(*connection_, table)), progress);
}

std::unique_ptr<RowReader> OdbcDatabase::Query(std::u16string_view statement, Progress& progress) {
  return std::make_unique<OdbcReader>(*connection_, statement, progress);
}

std::unique_ptr<TableFiller> OdbcDatabase::Fill(const FillOrder& order, Progress& progress) {
  return std::make_unique<OdbcFiller>(*connection_, order, progress);
}

std::vector<std::u16string> OdbcDrivers() {
  const OdbcEnvironment environment;
  std::vector<std::u16string> drivers;
  SQLWCHAR name[256] = {};
  SQLWCHAR attributes[2] = {};
  SQLSMALLINT length = 0;
  SQLUSMALLINT direction = SQL_FETCH_FIRST;
  while (SQL_SUCCEEDED(SQLDriversW(environment.get(), direction, name, 256, &length, attributes, 2, nullptr))) {
    drivers.emplace_back(reinterpret_cast<const char16_t*>(name));
    direction = SQL_FETCH_NEXT;
  }
  return drivers;
}

}  // namespace scrivanta
