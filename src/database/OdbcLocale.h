#pragma once

namespace scrivanta {

// To be called before ODBC is used: a manager of drivers that cuts the names of columns down to the locale's characters
// is given a locale that has them all.
void PrepareOdbcLocale();

}  // namespace scrivanta
