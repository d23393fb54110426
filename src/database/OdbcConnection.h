// A connection to a database through ODBC, and what its driver is like.
#pragma once

#include <optional>

#include "database/Database.h"
#include "database/OdbcHandle.h"

namespace scrivanta {

// A table's name and the schema that it is in, where that must be said.
struct OdbcTableName {
  std::u16string schema;
  std::u16string name;
};

// ODBC 3, made ready for a connection or a question about drivers.
class OdbcEnvironment {
 public:
  OdbcEnvironment();
  SQLHANDLE get() const noexcept { return handle_.get(); }

 private:
  OdbcHandle handle_;
};

class OdbcConnection {
 public:
  // Throws DatabaseError.
  explicit OdbcConnection(std::u16string_view connectionString);
  OdbcConnection(const OdbcConnection&) = delete;
  OdbcConnection& operator=(const OdbcConnection&) = delete;
  ~OdbcConnection();

  SQLHANDLE get() const noexcept { return connection_.get(); }
  const OdbcHandle& handle() const noexcept { return connection_; }
  // A text of SQLGetInfo, empty when there is none.
  std::u16string Info(SQLUSMALLINT what) const;
  std::u16string Quoted(std::u16string_view name) const;
  std::u16string Quoted(const OdbcTableName& table) const;
  void SetAutoCommit(bool on);
  void End(bool commit);

 private:
  void Connect(std::u16string_view connectionString);

  OdbcEnvironment environment_;
  OdbcHandle connection_;
  bool isConnected_ = false;
  std::u16string quote_;
};

class OdbcStatement {
 public:
  explicit OdbcStatement(const OdbcConnection& connection) : handle_(SQL_HANDLE_STMT, connection.get()) {}

  SQLHANDLE get() const noexcept { return handle_.get(); }
  const OdbcHandle& handle() const noexcept { return handle_; }
  void Execute(std::u16string_view statement);
  // The next row of a result; false at the end.
  bool Fetch();
  // A column of the row, from 1, as text; nothing for NULL. Columns are to be asked for in their order.
  std::optional<std::u16string> Text(SQLUSMALLINT column);
  std::int64_t Number(SQLUSMALLINT column);
  // The same appended; false for NULL.
  bool AppendText(SQLUSMALLINT column, std::u16string& text);
  bool AppendBytes(SQLUSMALLINT column, std::string& bytes);

 private:
  OdbcHandle handle_;
};

}  // namespace scrivanta
