#include "database/OdbcConnection.h"

#include <algorithm>

#include "database/OdbcLocale.h"
#include "text/UpperCase.h"

namespace scrivanta {

namespace {

constexpr std::size_t kPieceUnits = 8 * 1024;

// What the driver of PostgreSQL must be told so that it does not read a whole result into memory.
constexpr std::u16string_view kReadInPieces = u"UseDeclareFetch=1;Fetch=2000";
constexpr std::u16string_view kDriverOfPostgreSql = u"PSQLODBC";  // in the name of its file

SQLPOINTER AsPointer(SQLULEN value) {
  return reinterpret_cast<SQLPOINTER>(value);
}

}  // namespace

OdbcEnvironment::OdbcEnvironment() : handle_(SQL_HANDLE_ENV, SQL_NULL_HANDLE) {
  PrepareOdbcLocale();
  handle_.Check(SQLSetEnvAttr(handle_.get(), SQL_ATTR_ODBC_VERSION, AsPointer(SQL_OV_ODBC3), 0));
}

OdbcConnection::OdbcConnection(std::u16string_view connectionString) : connection_(SQL_HANDLE_DBC, environment_.get()) {
  Connect(std::u16string(connectionString));
  const bool readsInPieces = connectionString.find(u"UseDeclareFetch") != std::u16string_view::npos;
  const std::u16string driver = UpperCase(Info(SQL_DRIVER_NAME));
  if (driver.find(kDriverOfPostgreSql) != std::u16string::npos && !readsInPieces) {
    SQLDisconnect(connection_.get());
    isConnected_ = false;
    Connect(std::u16string(connectionString) + u";" + std::u16string(kReadInPieces));
  }
  quote_ = Info(SQL_IDENTIFIER_QUOTE_CHAR);
}

OdbcConnection::~OdbcConnection() {
  if (isConnected_) {
    SQLDisconnect(connection_.get());
  }
}

void OdbcConnection::Connect(std::u16string_view connectionString) {
  SQLSMALLINT length = 0;
  const SQLRETURN code =
      SQLDriverConnectW(connection_.get(), nullptr, OdbcText(connectionString),
                        static_cast<SQLSMALLINT>(connectionString.size()), nullptr, 0, &length, SQL_DRIVER_NOPROMPT);
  if (!SQL_SUCCEEDED(code)) {
    throw connection_.Failure();
  }
  isConnected_ = true;
}

std::u16string OdbcConnection::Info(SQLUSMALLINT what) const {
  SQLWCHAR text[256] = {};
  SQLSMALLINT bytes = 0;
  if (!SQL_SUCCEEDED(SQLGetInfoW(connection_.get(), what, text, sizeof text, &bytes))) {
    return {};
  }
  // Some drivers count characters here, some bytes, so the text's own end decides.
  return {reinterpret_cast<const char16_t*>(text)};
}

std::u16string OdbcConnection::Quoted(std::u16string_view name) const {
  const bool canQuote = !quote_.empty() && quote_ != u" ";
  return canQuote ? QuotedName(name, quote_[0], quote_[0]) : std::u16string(name);
}

std::u16string OdbcConnection::Quoted(const OdbcTableName& table) const {
  return table.schema.empty() ? Quoted(table.name) : Quoted(table.schema) + u"." + Quoted(table.name);
}

void OdbcConnection::SetAutoCommit(bool on) {
  connection_.Check(SQLSetConnectAttrW(connection_.get(), SQL_ATTR_AUTOCOMMIT,
                                       AsPointer(on ? SQL_AUTOCOMMIT_ON : SQL_AUTOCOMMIT_OFF), 0));
}

void OdbcConnection::End(bool commit) {
  connection_.Check(SQLEndTran(SQL_HANDLE_DBC, connection_.get(), commit ? SQL_COMMIT : SQL_ROLLBACK));
}

void OdbcStatement::Execute(std::u16string_view statement) {
  handle_.Check(SQLExecDirectW(get(), OdbcText(statement), static_cast<SQLINTEGER>(statement.size())));
}

bool OdbcStatement::Fetch() {
  const SQLRETURN code = SQLFetch(get());
  handle_.Check(code);
  return code != SQL_NO_DATA;
}

std::optional<std::u16string> OdbcStatement::Text(SQLUSMALLINT column) {
  std::u16string text;
  return AppendText(column, text) ? std::optional(text) : std::nullopt;
}

std::int64_t OdbcStatement::Number(SQLUSMALLINT column) {
  SQLBIGINT number = 0;
  SQLLEN length = 0;
  handle_.Check(SQLGetData(get(), column, SQL_C_SBIGINT, &number, sizeof number, &length));
  return length == SQL_NULL_DATA ? 0 : number;
}

bool OdbcStatement::AppendText(SQLUSMALLINT column, std::u16string& text) {
  SQLWCHAR piece[kPieceUnits];
  for (;;) {
    SQLLEN bytes = 0;
    const SQLRETURN code = SQLGetData(get(), column, SQL_C_WCHAR, piece, sizeof piece, &bytes);
    if (code == SQL_NO_DATA) {
      return true;
    }
    handle_.Check(code);
    if (bytes == SQL_NULL_DATA) {
      return false;
    }
    const bool isLast = code == SQL_SUCCESS;
    // A piece that is not the last is full but for its closing zero.
    const std::size_t units = isLast ? static_cast<std::size_t>(bytes) / sizeof(SQLWCHAR)
                                     : static_cast<std::size_t>(std::find(piece, piece + kPieceUnits - 1, 0) - piece);
    text.append(reinterpret_cast<const char16_t*>(piece), units);
    if (isLast) {
      return true;
    }
  }
}

bool OdbcStatement::AppendBytes(SQLUSMALLINT column, std::string& bytes) {
  char piece[kPieceUnits];
  for (;;) {
    SQLLEN length = 0;
    const SQLRETURN code = SQLGetData(get(), column, SQL_C_BINARY, piece, sizeof piece, &length);
    if (code == SQL_NO_DATA) {
      return true;
    }
    handle_.Check(code);
    if (length == SQL_NULL_DATA) {
      return false;
    }
    const bool isLast = code == SQL_SUCCESS;
    bytes.append(piece, isLast ? static_cast<std::size_t>(length) : sizeof piece);
    if (isLast) {
      return true;
    }
  }
}

}  // namespace scrivanta
