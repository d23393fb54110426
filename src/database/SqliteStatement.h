// One prepared statement of SQLite, and what it says when something goes wrong.
#pragma once

#include <exception>
#include <memory>
#include <string>
#include <string_view>

#include <sqlite3.h>

#include "database/DatabaseError.h"
#include "text/Progress.h"

namespace scrivanta {

// The last failure of the connection.
DatabaseError SqliteFailure(sqlite3* connection);

// While one lives, the library asks the progress in the midst of its work, and stops when that throws.
class SqliteProgress {
 public:
  SqliteProgress(sqlite3* connection, Progress& progress);
  SqliteProgress(const SqliteProgress&) = delete;
  SqliteProgress& operator=(const SqliteProgress&) = delete;
  ~SqliteProgress();

  // Throws what the progress has thrown.
  void Rethrow();

 private:
  static int Ask(void* self);

  sqlite3* connection_;
  Progress& progress_;
  std::exception_ptr thrown_;
};

class SqliteStatement {
 public:
  // Exactly one statement, in UTF-8. Throws DatabaseError.
  SqliteStatement(sqlite3* connection, std::string_view statement);

  // True: there is a row. With a guard, its progress may stop the step. Throws DatabaseError.
  bool Step(SqliteProgress* progress = nullptr);
  sqlite3_stmt* get() const noexcept { return statement_.get(); }

 private:
  struct Finalizer {
    void operator()(sqlite3_stmt* statement) const noexcept { sqlite3_finalize(statement); }
  };

  sqlite3* connection_;
  std::unique_ptr<sqlite3_stmt, Finalizer> statement_;
};

}  // namespace scrivanta
