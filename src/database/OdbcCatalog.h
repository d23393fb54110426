// What tables and columns a database behind ODBC has.
#pragma once

#include "database/OdbcConnection.h"

namespace scrivanta {

// Tables and views, without the system's own.
std::vector<OdbcTableName> OdbcTables(const OdbcConnection& connection);
// "table" in the schema that is meant when none is named, else "schema.table".
std::u16string ShownName(const OdbcTableName& table);
// The table that is shown under a name; a name that no table has is one without a schema.
OdbcTableName FindOdbcTable(const OdbcConnection& connection, std::u16string_view shown);

struct OdbcColumn {
  DatabaseColumn column;
  SQLSMALLINT sqlType = 0;
  std::size_t size = 0;
  SQLSMALLINT decimals = 0;
};
std::vector<OdbcColumn> OdbcColumns(const OdbcConnection& connection, const OdbcTableName& table);

}  // namespace scrivanta
