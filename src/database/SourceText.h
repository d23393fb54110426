// What the user types to name a database: the path of a file, or a connection string of ODBC.
#pragma once

#include <string>
#include <string_view>

namespace scrivanta {

// "DSN=books", "DRIVER={...};Server=...": a name before an equals sign, and no path before it.
bool IsConnectionString(std::u16string_view text);
// Whether a connection names a user and no password, so that one is to be asked for.
bool WantsPassword(std::u16string_view connection);
std::u16string WithPassword(std::u16string_view connection, std::u16string_view password);
// Without any password, for what is kept.
std::u16string WithoutPassword(std::u16string_view text);

}  // namespace scrivanta
