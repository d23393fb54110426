// Owners of ODBC's handles, and what a driver says when something goes wrong.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "OdbcHeaders.h"
#include "database/DatabaseError.h"

namespace scrivanta {

class OdbcHandle {
 public:
  // Throws std::bad_alloc, or DatabaseError where there is no manager of drivers.
  OdbcHandle(SQLSMALLINT kind, SQLHANDLE parent);
  OdbcHandle(const OdbcHandle&) = delete;
  OdbcHandle& operator=(const OdbcHandle&) = delete;
  ~OdbcHandle();

  SQLHANDLE get() const noexcept { return handle_; }
  // Throws DatabaseError with what the driver says.
  void Check(SQLRETURN code) const;
  DatabaseError Failure() const;
  // The first record's state of five characters ("23505"), empty without one.
  std::string State() const;

 private:
  SQLSMALLINT kind_;
  SQLHANDLE handle_ = SQL_NULL_HANDLE;
};

// A text for a parameter of ODBC, which are not const.
inline SQLWCHAR* OdbcText(std::u16string_view text) {
  static_assert(sizeof(SQLWCHAR) == sizeof(char16_t));
  return reinterpret_cast<SQLWCHAR*>(const_cast<char16_t*>(text.data()));
}

inline std::u16string TextOfOdbc(const SQLWCHAR* text, std::size_t length) {
  return std::u16string(reinterpret_cast<const char16_t*>(text), length);
}

}  // namespace scrivanta
