#include "database/OdbcCatalog.h"

#include <algorithm>

#include "database/OdbcTypes.h"

namespace scrivanta {

namespace {

// Of the results of SQLTables and SQLColumns.
constexpr SQLUSMALLINT kSchemaColumn = 2;
constexpr SQLUSMALLINT kTableColumn = 3;
constexpr SQLUSMALLINT kNameColumn = 4;
constexpr SQLUSMALLINT kTypeColumn = 5;
constexpr SQLUSMALLINT kTypeNameColumn = 6;
constexpr SQLUSMALLINT kSizeColumn = 7;
constexpr SQLUSMALLINT kDecimalsColumn = 9;

// Where a statement looks that names no schema.
constexpr std::u16string_view kUsualSchemas[] = {u"", u"public", u"dbo", u"main"};

}  // namespace

std::vector<OdbcTableName> OdbcTables(const OdbcConnection& connection) {
  static constexpr std::u16string_view kTypes = u"TABLE,VIEW";
  OdbcStatement statement(connection);
  statement.handle().Check(SQLTablesW(statement.get(), nullptr, 0, nullptr, 0, nullptr, 0, OdbcText(kTypes),
                                      static_cast<SQLSMALLINT>(kTypes.size())));
  std::vector<OdbcTableName> tables;
  while (statement.Fetch()) {
    const std::u16string schema = statement.Text(kSchemaColumn).value_or(u"");
    tables.push_back({schema, statement.Text(kTableColumn).value_or(u"")});
  }
  return tables;
}

std::u16string ShownName(const OdbcTableName& table) {
  const bool isUsual = std::ranges::find(kUsualSchemas, table.schema) != std::end(kUsualSchemas);
  return isUsual ? table.name : table.schema + u"." + table.name;
}

OdbcTableName FindOdbcTable(const OdbcConnection& connection, std::u16string_view shown) {
  const std::vector<OdbcTableName> tables = OdbcTables(connection);
  const auto found = std::ranges::find_if(tables, [shown](const auto& table) { return ShownName(table) == shown; });
  return found == tables.end() ? OdbcTableName{{}, std::u16string(shown)} : *found;
}

std::vector<OdbcColumn> OdbcColumns(const OdbcConnection& connection, const OdbcTableName& table) {
  OdbcStatement statement(connection);
  statement.handle().Check(SQLColumnsW(statement.get(), nullptr, 0, nullptr, 0, OdbcText(table.name),
                                       static_cast<SQLSMALLINT>(table.name.size()), nullptr, 0));
  std::vector<OdbcColumn> columns;
  while (statement.Fetch()) {
    OdbcColumn column;
    const std::u16string schema = statement.Text(kSchemaColumn).value_or(u"");
    // The name was a pattern to the driver.
    if (statement.Text(kTableColumn) != table.name || (!table.schema.empty() && schema != table.schema)) {
      continue;
    }
    column.column.name = statement.Text(kNameColumn).value_or(u"");
    column.sqlType = static_cast<SQLSMALLINT>(statement.Number(kTypeColumn));
    column.column.typeName = statement.Text(kTypeNameColumn).value_or(u"");
    column.size = static_cast<std::size_t>(std::max<std::int64_t>(statement.Number(kSizeColumn), 0));
    column.decimals = static_cast<SQLSMALLINT>(statement.Number(kDecimalsColumn));
    column.column.type = {KindOfSqlType(column.sqlType)};
    columns.push_back(column);
  }
  return columns;
}

}  // namespace scrivanta
