// The types of a database behind ODBC: what a column is, and the database's own word for a column to be made, which the
// driver is asked for.
#pragma once

#include <vector>

#include "OdbcHeaders.h"
#include "database/Database.h"

namespace scrivanta {

class OdbcConnection;

ColumnKind KindOfSqlType(SQLSMALLINT sqlType);

struct OdbcType {
  SQLSMALLINT sqlType = 0;
  std::u16string word;
  std::size_t size = 0;       // the longest it can be, in characters or digits; 0: unknown
  std::u16string parameters;  // "max length", "precision,scale"; empty: it takes none
};

// All types of the database that a column can be made of, in the driver's order.
std::vector<OdbcType> OdbcTypesOf(const OdbcConnection& connection);

// What to write behind a column's name so that every value of the type fits: "varchar(255)". A type that the database
// lacks becomes a text. Throws DatabaseError when it has no text of such a length.
std::u16string TypeWord(const std::vector<OdbcType>& types, const ColumnType& wanted);

}  // namespace scrivanta
