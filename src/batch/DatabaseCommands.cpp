#include <memory>
#include <optional>
#include <string>

#include <CLI/CLI.hpp>

#include "batch/BatchCommand.h"
#include "batch/Choice.h"
#include "database/DatabaseError.h"
#include "database/DatabaseSource.h"
#include "database/RecordSource.h"
#include "database/TableExport.h"
#include "text/EnvironmentText.h"

namespace scrivanta {

namespace {

constexpr std::u16string_view kSheetName = u"导出";

std::u16string FromArgument(const std::string& argument) {
  return Decode(Encoding::kUtf8, argument);
}

struct SourceArguments {
  std::string file;
  std::string connectionVariable;
};

void AddSource(CLI::App& parser, SourceArguments& arguments) {
  CLI::Option* file =
      parser.add_option("--database", arguments.file, "File of SQLite; of Jet where it ends with .mdb or .accdb")
          ->type_name("FILE");
  CLI::Option* variable =
      parser
          .add_option("--connection-from-env", arguments.connectionVariable,
                      "Variable of the environment that holds a connection string of ODBC: so no password is seen")
          ->type_name("NAME");
  file->excludes(variable);
}

std::unique_ptr<Database> Open(const SourceArguments& arguments, MissingFile missing) {
  if (arguments.file.empty() && arguments.connectionVariable.empty()) {
    throw UnusableArguments("--database FILE or --connection-from-env NAME is required");
  }
  DatabaseSource source{.file = FromArgument(arguments.file)};
  if (arguments.file.empty()) {
    const auto connection = EnvironmentText(FromArgument(arguments.connectionVariable));
    if (!connection || connection->empty()) {
      throw UnusableArguments("the environment has no " + arguments.connectionVariable);
    }
    source.connection = *connection;
  }
  return ConnectTo(source, missing);
}

BatchWork ConfigureTables(CLI::App& parser) {
  const auto arguments = std::make_shared<SourceArguments>();
  AddSource(parser, *arguments);
  return [arguments](BatchContext& context) {
    const std::unique_ptr<Database> database = Open(*arguments, MissingFile::kRefused);
    LineWriter out(context.output);
    for (const std::u16string& table : database->Tables(context.progress)) {
      const std::uint64_t rows = database->CountRows(table, context.progress);
      out.WriteLine(Encode(context.encoding, table) + "\t" + std::to_string(rows));
    }
    out.Flush();
    return ExitStatus::kDone;
  };
}

struct TableArguments {
  SourceArguments source;
  std::string table;
  std::string query;
  std::string delimiter = "tab";
  std::optional<std::string> nullText;
  bool header = false;
  bool toSheet = false;
  bool replace = false;
  std::vector<std::string> types;
};

RecordFormat FormatOf(const TableArguments& arguments, Encoding encoding) {
  if (arguments.delimiter.empty()) {
    throw UnusableArguments("--delimiter must not be empty");
  }
  return FormatOfDelimiter(FromArgument(arguments.delimiter), encoding);
}

void AddFormat(CLI::App& parser, TableArguments& arguments) {
  parser.add_option("--delimiter", arguments.delimiter, "tab (default), comma, semicolon, blanks or a text")
      ->type_name("D");
  parser.add_flag("--header", arguments.header, "The first record names the columns");
  parser.add_option("--null", arguments.nullText, "The text that stands for NULL; none: an empty field")
      ->type_name("TEXT");
}

void AddForm(CLI::App& parser, TableArguments& arguments) {
  AddChoice(parser, "--to", arguments.toSheet, {{"text", false}, {"xlsx", true}},
            "text (default): records; xlsx: a sheet, numbers as numbers");
}

ExitStatus RunExport(const TableArguments& arguments, BatchContext& context) {
  if (arguments.table.empty() == arguments.query.empty()) {
    throw UnusableArguments("either --table T or --query Q is required");
  }
  const ExportOptions options{.format = FormatOf(arguments, context.encoding),
                              .header = arguments.header,
                              .nullText = FromArgument(arguments.nullText.value_or(""))};
  const std::unique_ptr<Database> database = Open(arguments.source, MissingFile::kRefused);
  const std::unique_ptr<RowReader> rows = arguments.query.empty()
                                              ? database->ReadTable(FromArgument(arguments.table), context.progress)
                                              : database->Query(FromArgument(arguments.query), context.progress);
  if (arguments.toSheet) {
    WriteSheetTo(context.output, std::filesystem::temp_directory_path(), {.name = kSheetName, .header = options.header},
                 [&](SheetWriter& sheet) { ExportSheet(*rows, sheet, options, context.progress); });
  } else {
    LineWriter out(context.output);
    ExportRows(*rows, out, options, context.progress);
    out.Flush();
  }
  return ExitStatus::kDone;
}

BatchWork ConfigureExport(CLI::App& parser) {
  const auto arguments = std::make_shared<TableArguments>();
  AddSource(parser, arguments->source);
  parser.add_option("--table", arguments->table, "Table or view to write")->type_name("T");
  parser.add_option("--query", arguments->query, "Statement whose rows are written instead")->type_name("Q");
  AddFormat(parser, *arguments);
  AddForm(parser, *arguments);
  return [arguments](BatchContext& context) { return RunExport(*arguments, context); };
}

BatchWork ConfigureQuery(CLI::App& parser) {
  const auto arguments = std::make_shared<TableArguments>();
  AddSource(parser, arguments->source);
  parser.add_option("--query", arguments->query, "One statement; its rows are written, where it has any")
      ->required()
      ->type_name("Q");
  AddFormat(parser, *arguments);
  AddForm(parser, *arguments);
  return [arguments](BatchContext& context) { return RunExport(*arguments, context); };
}

std::vector<ColumnType> TypesOf(const std::vector<std::string>& words) {
  static const std::map<std::string, ColumnKind> kKinds = {
      {"text", ColumnKind::kText},       {"integer", ColumnKind::kInteger}, {"real", ColumnKind::kReal},
      {"decimal", ColumnKind::kDecimal}, {"date", ColumnKind::kDate},       {"datetime", ColumnKind::kDateTime},
      {"binary", ColumnKind::kBinary}};
  std::vector<ColumnType> types;
  for (const std::string& word : words) {
    const auto found = kKinds.find(word);
    if (found == kKinds.end()) {
      throw UnusableArguments("no such type: " + word);
    }
    types.push_back({found->second});
  }
  return types;
}

ExitStatus RunImport(const TableArguments& arguments, BatchContext& context) {
  const ImportOptions options{
      .table = FromArgument(arguments.table),
      .header = arguments.header,
      .replace = arguments.replace,
      .nullText = arguments.nullText ? std::optional(FromArgument(*arguments.nullText)) : std::nullopt,
      .types = TypesOf(arguments.types)};
  const RecordFormat format = FormatOf(arguments, context.encoding);
  context.input.MakeRewindable(context.progress);
  RecordSource source(
      context.input, [&context] { context.input.Rewind(); }, format, context.progress);
  const std::unique_ptr<Database> database = Open(arguments.source, MissingFile::kMade);
  const std::uint64_t rows = ImportRows(*database, source, options, context.progress);
  context.output.Write("imported " + std::to_string(rows) + " rows\r\n");
  return ExitStatus::kDone;
}

BatchWork ConfigureImport(CLI::App& parser) {
  const auto arguments = std::make_shared<TableArguments>();
  AddSource(parser, arguments->source);
  parser.add_option("--table", arguments->table, "Table to fill; made when it is not there")
      ->required()
      ->type_name("T");
  AddFormat(parser, *arguments);
  parser.add_flag("--replace", arguments->replace, "Take the rows out that the table has");
  parser
      .add_option("--types", arguments->types,
                  "Types of a table to be made: text, integer, real, decimal, date, datetime, binary; none: found")
      ->delimiter(',')
      ->allow_extra_args(false)
      ->type_name("LIST");
  return [arguments](BatchContext& context) { return RunImport(*arguments, context); };
}

}  // namespace

std::vector<BatchCommand> DatabaseBatchCommands() {
  return {
      {.name = "db-tables",
       .description = "List the tables of a database with their row counts",
       .example = "scrivanta-batch db-tables --database books.db",
       .configure = ConfigureTables,
       .takesInput = false},
      {.name = "db-export",
       .description = "Write a table of a database, or what a query gives, as records",
       .example = "scrivanta-batch db-export --database books.db --table books --delimiter comma --header -o books.csv",
       .configure = ConfigureExport,
       .takesInput = false},
      {.name = "db-import",
       .description = "Put records into a table of a database, all of them or none",
       .example = "scrivanta-batch db-import --database books.db --table books --delimiter comma --header books.csv",
       .configure = ConfigureImport},
      {.name = "db-query",
       .description = "Carry out one statement and write the rows that it gives",
       .example = "scrivanta-batch db-query --database books.db --query \"SELECT * FROM books WHERE price > 50\"",
       .configure = ConfigureQuery,
       .takesInput = false},
  };
}

}  // namespace scrivanta
