#include "database/OdbcTypes.h"

#include <algorithm>
#include <span>

#include "database/OdbcConnection.h"
#include "text/DecimalText.h"

namespace scrivanta {

namespace {

constexpr std::size_t kUsualLength = 255;  // of a short text
constexpr std::size_t kMostOfInteger = 9;  // digits that 32 bits hold whatever they are
constexpr SQLUSMALLINT kNameColumn = 1;    // of the result of SQLGetTypeInfo
constexpr SQLUSMALLINT kTypeColumn = 2;
constexpr SQLUSMALLINT kSizeColumn = 3;
constexpr SQLUSMALLINT kParametersColumn = 6;
constexpr SQLUSMALLINT kCountsItselfColumn = 12;

// Kinds of the database that do for a kind, the best first.
std::vector<SQLSMALLINT> Candidates(const ColumnType& wanted) {
  switch (wanted.kind) {
    case ColumnKind::kInteger:
      return wanted.length > 0 && wanted.length <= kMostOfInteger
                 ? std::vector<SQLSMALLINT>{SQL_INTEGER, SQL_BIGINT, SQL_NUMERIC, SQL_DECIMAL}
                 : std::vector<SQLSMALLINT>{SQL_BIGINT, SQL_NUMERIC, SQL_DECIMAL};
    case ColumnKind::kReal:
      return {SQL_DOUBLE, SQL_FLOAT};
    case ColumnKind::kDecimal:
      return {SQL_NUMERIC, SQL_DECIMAL};
    case ColumnKind::kDate:
      return {SQL_TYPE_DATE};
    case ColumnKind::kDateTime:
      return {SQL_TYPE_TIMESTAMP};
    case ColumnKind::kBinary:
      return {SQL_LONGVARBINARY, SQL_VARBINARY};
    case ColumnKind::kText:
    case ColumnKind::kOther:
      break;
  }
  if (wanted.length <= kUsualLength) {
    return {SQL_WVARCHAR, SQL_VARCHAR, SQL_WLONGVARCHAR, SQL_LONGVARCHAR};
  }
  return {SQL_WLONGVARCHAR, SQL_LONGVARCHAR, SQL_WVARCHAR, SQL_VARCHAR};
}

bool HoldsText(SQLSMALLINT sqlType) {
  static constexpr SQLSMALLINT kTexts[] = {SQL_WVARCHAR, SQL_VARCHAR, SQL_WLONGVARCHAR, SQL_LONGVARCHAR};
  return std::ranges::find(kTexts, sqlType) != std::end(kTexts);
}

// What a driver says of the length of a long text is a setting of its own, not a limit of the database.
bool IsLong(const OdbcType& type) {
  return type.sqlType == SQL_WLONGVARCHAR || type.sqlType == SQL_LONGVARCHAR || type.sqlType == SQL_LONGVARBINARY;
}

bool IsLongEnough(const OdbcType& type, const ColumnType& wanted) {
  return type.size == 0 || wanted.length <= type.size || IsLong(type);
}

std::size_t LengthToMake(const ColumnType& wanted, const OdbcType& type) {
  if (!HoldsText(type.sqlType)) {
    return wanted.length > 0 ? wanted.length : type.size;
  }
  return std::max(wanted.length, type.size > 0 ? std::min(kUsualLength, type.size) : kUsualLength);
}

std::u16string WordWithParameters(const OdbcType& type, const ColumnType& wanted) {
  if (type.parameters.empty() || IsLong(type)) {
    return type.word;
  }
  std::u16string arguments = DecimalText(LengthToMake(wanted, type));
  if (type.parameters.find(u',') != std::u16string::npos) {
    if (wanted.kind == ColumnKind::kDecimal && wanted.length == 0) {
      return type.word;
    }
    arguments += u"," + DecimalText(wanted.scale);
  }
  // "char() for bit data": the arguments stand within the word.
  const std::size_t brackets = type.word.find(u"()");
  if (brackets != std::u16string::npos) {
    return type.word.substr(0, brackets + 1) + arguments + type.word.substr(brackets + 1);
  }
  return type.word + u"(" + arguments + u")";
}

}  // namespace

ColumnKind KindOfSqlType(SQLSMALLINT sqlType) {
  switch (sqlType) {
    case SQL_TINYINT:
    case SQL_SMALLINT:
    case SQL_INTEGER:
    case SQL_BIGINT:
      return ColumnKind::kInteger;
    case SQL_REAL:
    case SQL_FLOAT:
    case SQL_DOUBLE:
      return ColumnKind::kReal;
    case SQL_NUMERIC:
    case SQL_DECIMAL:
      return ColumnKind::kDecimal;
    case SQL_TYPE_DATE:
      return ColumnKind::kDate;
    case SQL_TYPE_TIMESTAMP:
      return ColumnKind::kDateTime;
    case SQL_BINARY:
    case SQL_VARBINARY:
    case SQL_LONGVARBINARY:
      return ColumnKind::kBinary;
    case SQL_CHAR:
    case SQL_VARCHAR:
    case SQL_LONGVARCHAR:
    case SQL_WCHAR:
    case SQL_WVARCHAR:
    case SQL_WLONGVARCHAR:
      return ColumnKind::kText;
    default:
      return ColumnKind::kOther;
  }
}

std::vector<OdbcType> OdbcTypesOf(const OdbcConnection& connection) {
  OdbcStatement statement(connection);
  statement.handle().Check(SQLGetTypeInfoW(statement.get(), SQL_ALL_TYPES));
  std::vector<OdbcType> types;
  while (statement.Fetch()) {
    OdbcType type;
    type.word = statement.Text(kNameColumn).value_or(u"");
    type.sqlType = static_cast<SQLSMALLINT>(statement.Number(kTypeColumn));
    type.size = static_cast<std::size_t>(std::max<std::int64_t>(statement.Number(kSizeColumn), 0));
    type.parameters = statement.Text(kParametersColumn).value_or(u"");
    const bool countsItself = statement.Number(kCountsItselfColumn) != 0;
    if (!countsItself && !type.word.empty()) {
      types.push_back(type);
    }
  }
  return types;
}

std::u16string TypeWord(const std::vector<OdbcType>& types, const ColumnType& wanted) {
  for (const SQLSMALLINT candidate : Candidates(wanted)) {
    const auto found = std::ranges::find_if(
        types, [&](const OdbcType& type) { return type.sqlType == candidate && IsLongEnough(type, wanted); });
    if (found != types.end()) {
      return WordWithParameters(*found, wanted);
    }
  }
  if (wanted.kind != ColumnKind::kText) {
    return TypeWord(types, {ColumnKind::kText, wanted.length, 0});
  }
  throw DatabaseError("the database has no type for texts of " + std::to_string(wanted.length) + " characters",
                      u"这个数据库没有能放下" + DecimalText(wanted.length) + u"个字符的文本类型。");
}

}  // namespace scrivanta
