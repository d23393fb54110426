#include "database/SqliteStatement.h"

#include "text/Encoding.h"

namespace scrivanta {

namespace {

constexpr int kStepsPerReport = 20000;  // of the library's machine: some milliseconds

std::u16string_view ChineseReason(int code) {
  switch (code) {
    case SQLITE_CANTOPEN:
      return u"打不开文件";
    case SQLITE_NOTADB:
      return u"文件不是SQLite数据库，或者已加密";
    case SQLITE_CORRUPT:
      return u"数据库文件已损坏";
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      return u"数据库正被其他程序使用";
    case SQLITE_READONLY:
      return u"数据库只读";
    case SQLITE_FULL:
      return u"磁盘已满";
    case SQLITE_TOOBIG:
      return u"文本太长";
    case SQLITE_CONSTRAINT:
      return u"不符合表的约束";
    default:
      return u"数据库不接受这个操作";
  }
}

}  // namespace

DatabaseError SqliteFailure(sqlite3* connection) {
  const std::string message = sqlite3_errmsg(connection);
  std::u16string chinese(ChineseReason(sqlite3_errcode(connection)));
  return {message, chinese + u"：" + Decode(Encoding::kUtf8, message)};
}

SqliteProgress::SqliteProgress(sqlite3* connection, Progress& progress) : connection_(connection), progress_(progress) {
  sqlite3_progress_handler(connection_, kStepsPerReport, Ask, this);
}

SqliteProgress::~SqliteProgress() {
  sqlite3_progress_handler(connection_, 0, nullptr, nullptr);
}

void SqliteProgress::Rethrow() {
  if (thrown_ != nullptr) {
    std::rethrow_exception(std::exchange(thrown_, nullptr));
  }
}

int SqliteProgress::Ask(void* self) {
  auto& guard = *static_cast<SqliteProgress*>(self);
  try {
    guard.progress_.Report(0, 0);
    return 0;
  } catch (...) {
    guard.thrown_ = std::current_exception();
    return 1;
  }
}

SqliteStatement::SqliteStatement(sqlite3* connection, std::string_view statement) : connection_(connection) {
  sqlite3_stmt* prepared = nullptr;
  const char* rest = nullptr;
  const int code =
      sqlite3_prepare_v2(connection, statement.data(), static_cast<int>(statement.size()), &prepared, &rest);
  statement_.reset(prepared);
  if (code != SQLITE_OK) {
    throw SqliteFailure(connection);
  }
  if (prepared == nullptr) {
    throw DatabaseError("the statement is empty", u"语句是空的。");
  }
  const std::string_view left = statement.substr(static_cast<std::size_t>(rest - statement.data()));
  if (left.find_first_not_of(" \t\r\n;") != std::string_view::npos) {
    throw DatabaseError("only one statement at a time", u"一次只能执行一条语句。");
  }
}

bool SqliteStatement::Step(SqliteProgress* progress) {
  const int code = sqlite3_step(statement_.get());
  if (code == SQLITE_ROW || code == SQLITE_DONE) {
    return code == SQLITE_ROW;
  }
  if (progress != nullptr) {
    progress->Rethrow();
  }
  throw SqliteFailure(connection_);
}

}  // namespace scrivanta
