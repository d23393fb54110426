#include "database/OdbcHandle.h"

#include <algorithm>

#include "text/Encoding.h"

namespace scrivanta {

namespace {

struct Diagnosis {
  std::u16string state;
  std::u16string message;
};

// One record, from 1; nothing beyond the last.
Diagnosis ReadDiagnosis(SQLSMALLINT kind, SQLHANDLE handle, SQLSMALLINT record) {
  SQLWCHAR state[6] = {};
  SQLWCHAR message[1024] = {};
  SQLINTEGER native = 0;
  SQLSMALLINT length = 0;
  const SQLRETURN code = SQLGetDiagRecW(kind, handle, record, state, &native, message, 1024, &length);
  if (!SQL_SUCCEEDED(code)) {
    return {};
  }
  return {TextOfOdbc(state, 5), TextOfOdbc(message, static_cast<std::size_t>(std::min<SQLSMALLINT>(length, 1023)))};
}

}  // namespace

OdbcHandle::OdbcHandle(SQLSMALLINT kind, SQLHANDLE parent) : kind_(kind) {
  if (!SQL_SUCCEEDED(SQLAllocHandle(kind, parent, &handle_))) {
    throw DatabaseError("ODBC is not available", u"这台计算机上没有ODBC。");
  }
}

OdbcHandle::~OdbcHandle() {
  SQLFreeHandle(kind_, handle_);
}

void OdbcHandle::Check(SQLRETURN code) const {
  if (code == SQL_ERROR || code == SQL_INVALID_HANDLE) {
    throw Failure();
  }
}

DatabaseError OdbcHandle::Failure() const {
  std::u16string text;
  for (SQLSMALLINT record = 1; record <= 3; ++record) {
    const Diagnosis diagnosis = ReadDiagnosis(kind_, handle_, record);
    if (diagnosis.message.empty()) {
      break;
    }
    text += (text.empty() ? u"" : u"\n") + diagnosis.message;
  }
  if (text.empty()) {
    text = u"the driver does not say why";
  }
  return {Encode(Encoding::kUtf8, text), u"数据库不接受这个操作：" + text};
}

std::string OdbcHandle::State() const {
  const std::u16string state = ReadDiagnosis(kind_, handle_, 1).state;
  return {state.begin(), state.end()};
}

}  // namespace scrivanta
