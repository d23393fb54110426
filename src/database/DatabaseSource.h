// From what the user names to a database: a file, or a connection string of ODBC.
#pragma once

#include <memory>

#include "database/Database.h"
#include "database/SqliteDatabase.h"

namespace scrivanta {

struct DatabaseSource {
  std::u16string file;             // SQLite, or Jet by its ending; empty: the connection
  std::u16string connection = {};  // of ODBC
  std::u16string password = {};    // of a Jet file
};

// Throws DatabaseError: with what to install where a Jet file has no driver.
std::unique_ptr<Database> ConnectTo(const DatabaseSource& source, MissingFile missing);

}  // namespace scrivanta
