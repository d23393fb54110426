#include "database/TableImport.h"

#include <algorithm>

#include "database/DatabaseError.h"
#include "database/TypeFinder.h"
#include "database/ValueText.h"
#include "text/DecimalText.h"
#include "text/Encoding.h"
#include "text/UpperCase.h"

namespace scrivanta {

namespace {

constexpr std::size_t kShownUnits = 40;  // of a value in a message

std::string Utf8(std::u16string_view text) {
  return Encode(Encoding::kUtf8, text);
}

bool IsEmptyLine(const DatabaseRow& row) {
  return row.size() == 1 && row[0].empty();
}

// Reads the header, when there is one; the names of the columns of a table that is made without one are made up.
std::vector<std::u16string> ReadHeader(RowSource& source, const ImportOptions& options) {
  DatabaseRow row;
  std::vector<std::u16string> names;
  if (!source.Next(row)) {
    return names;
  }
  for (std::size_t i = 0; i < row.size(); ++i) {
    names.push_back(options.header ? std::u16string(row[i]) : u"column" + DecimalText(i + 1));
  }
  return names;
}

std::vector<DatabaseColumn> ColumnsToMake(const std::vector<std::u16string>& names) {
  std::vector<DatabaseColumn> columns;
  for (const std::u16string& name : names) {
    const bool isTaken = std::ranges::any_of(
        columns, [&name](const DatabaseColumn& column) { return UpperCase(column.name) == UpperCase(name); });
    if (name.empty() || isTaken) {
      const std::string which = std::to_string(columns.size() + 1);
      throw DatabaseError("the header's column " + which + (name.empty() ? " has no name" : " has a name twice"),
                          u"标题行第" + DecimalText(columns.size() + 1) + u"列" +
                              (name.empty() ? u"没有名字。" : u"的名字重复：" + name));
    }
    columns.push_back({name});
  }
  return columns;
}

ColumnMatch FirstColumns(const std::vector<DatabaseColumn>& columns, std::size_t count) {
  if (count > columns.size()) {
    throw DatabaseError(
        "the input has " + std::to_string(count) + " columns, the table " + std::to_string(columns.size()),
        u"数据有" + DecimalText(count) + u"列，表只有" + DecimalText(columns.size()) + u"列。");
  }
  ColumnMatch match;
  const auto end = columns.begin() + static_cast<std::ptrdiff_t>(count);
  match.columns.assign(columns.begin(), end);
  std::transform(end, columns.end(), std::back_inserter(match.notFilled),
                 [](const DatabaseColumn& column) { return column.name; });
  return match;
}

ColumnMatch Plan(Database& database, RowSource& source, const ImportOptions& options) {
  const std::vector<std::u16string> names = ReadHeader(source, options);
  if (names.empty()) {
    throw DatabaseError("the input is empty", u"没有可以导入的数据。");
  }
  const std::vector<DatabaseColumn> existing = database.Columns(options.table);
  if (existing.empty()) {
    return {.makesTable = true, .columns = ColumnsToMake(names)};
  }
  return options.header ? MatchColumns(existing, names) : FirstColumns(existing, names.size());
}

class Importer {
 public:
  Importer(RowSource& source, const ImportOptions& options, Progress& progress, ColumnMatch& match)
      : source_(source), options_(options), progress_(progress), match_(match) {}

  void Rewind() {
    source_.Rewind();
    if (options_.header) {
      source_.Next(row_);
    }
  }

  // Visits every row, checked and with its NULLs. Throws BadRow.
  void Visit(bool checkTypes, const std::function<void(const DatabaseRow&)>& visit) {
    Rewind();
    while (source_.Next(row_)) {
      if (match_.columns.size() > 1 && IsEmptyLine(row_)) {
        continue;
      }
      if (row_.size() != match_.columns.size()) {
        RefuseCount();
      }
      MarkNulls();
      if (checkTypes) {
        Check();
      }
      visit(taken_);
    }
  }

  void FindTypes() {
    std::vector<TypeFinder> finders(match_.columns.size());
    std::uint64_t rows = 0;
    Visit(false, [&](const DatabaseRow& row) {
      for (std::size_t i = 0; i < row.size(); ++i) {
        // An empty field may become NULL, so it decides nothing.
        if (!row.IsNull(i) && !row[i].empty()) {
          finders[i].Look(row[i]);
        }
      }
      ReportRow(++rows);
    });
    for (std::size_t i = 0; i < finders.size(); ++i) {
      match_.columns[i].type = finders[i].Found();
    }
  }

  std::uint64_t Fill(TableFiller& filler) {
    std::uint64_t rows = 0;
    Visit(true, [&](const DatabaseRow& row) {
      filler.Add(row, source_.line());
      ReportRow(++rows);
    });
    return rows;
  }

 private:
  void ReportRow(std::uint64_t rows) {
    if (rows % 256 == 0) {
      progress_.Report(rows, 0);
    }
  }

  void MarkNulls() {
    taken_.Clear();
    for (std::size_t i = 0; i < row_.size(); ++i) {
      const std::u16string_view field = row_[i];
      const bool isNull = options_.nullText ? field == *options_.nullText
                                            : field.empty() && match_.columns[i].type.kind != ColumnKind::kText;
      if (isNull) {
        taken_.AddNull();
      } else {
        taken_.Add(field);
      }
    }
  }

  void Check() const {
    for (std::size_t i = 0; i < taken_.size(); ++i) {
      const DatabaseColumn& column = match_.columns[i];
      if (taken_.IsNull(i) || Fits(column.type.kind, taken_[i])) {
        continue;
      }
      const std::u16string shown(taken_[i].substr(0, kShownUnits));
      const KindWords words = WordsOf(column.type.kind);
      throw BadRow({.line = source_.line(),
                    .column = i + 1,
                    .columnName = column.name,
                    .english = "'" + Utf8(shown) + "' is not " + std::string(words.english),
                    .chinese = u"“" + shown + u"”不是" + std::u16string(words.chinese) + u"。"});
    }
  }

  [[noreturn]] void RefuseCount() const {
    const std::size_t wanted = match_.columns.size();
    RowRefusal refusal{.line = source_.line(),
                       .english = "there are " + std::to_string(row_.size()) + " fields, not " + std::to_string(wanted),
                       .chinese = u"有" + DecimalText(row_.size()) + u"个字段，应为" + DecimalText(wanted) + u"个。"};
    if (row_.size() < wanted) {
      refusal.column = row_.size() + 1;  // the first that is missing
      refusal.columnName = match_.columns[row_.size()].name;
    }
    throw BadRow(refusal);
  }

  RowSource& source_;
  const ImportOptions& options_;
  Progress& progress_;
  ColumnMatch& match_;
  DatabaseRow row_;    // as read
  DatabaseRow taken_;  // with its NULLs
};

void RefuseUnknown(const ColumnMatch& match) {
  if (match.unknown.empty()) {
    return;
  }
  std::u16string names;
  for (const std::u16string& name : match.unknown) {
    names += (names.empty() ? u"" : u", ") + name;
  }
  throw DatabaseError("the table has no column for: " + Utf8(names), u"表里没有这些列，或者名字重复：" + names);
}

void SetTypes(ColumnMatch& match, const std::vector<ColumnType>& types) {
  if (types.size() != match.columns.size()) {
    throw DatabaseError(
        "there are " + std::to_string(types.size()) + " types for " + std::to_string(match.columns.size()) + " columns",
        u"类型的个数和列数不一样。");
  }
  for (std::size_t i = 0; i < types.size(); ++i) {
    match.columns[i].type = types[i];
  }
}

}  // namespace

ColumnMatch MatchColumns(const std::vector<DatabaseColumn>& columns, const std::vector<std::u16string>& header) {
  ColumnMatch match;
  std::vector<bool> used(columns.size(), false);
  for (const std::u16string& name : header) {
    auto found = std::ranges::find(columns, name, &DatabaseColumn::name);
    if (found == columns.end()) {
      found = std::ranges::find_if(
          columns, [&name](const DatabaseColumn& column) { return UpperCase(column.name) == UpperCase(name); });
    }
    const auto index = static_cast<std::size_t>(found - columns.begin());
    if (found == columns.end() || used[index]) {
      match.unknown.push_back(name);
      continue;
    }
    used[index] = true;
    match.columns.push_back(*found);
  }
  for (std::size_t i = 0; i < columns.size(); ++i) {
    if (!used[i]) {
      match.notFilled.push_back(columns[i].name);
    }
  }
  return match;
}

ColumnMatch PlanImport(Database& database, RowSource& source, const ImportOptions& options) {
  ColumnMatch match = Plan(database, source, options);
  source.Rewind();
  return match;
}

std::uint64_t ImportRows(Database& database, RowSource& source, const ImportOptions& options, Progress& progress) {
  ColumnMatch match = Plan(database, source, options);
  RefuseUnknown(match);
  Importer importer(source, options, progress, match);
  if (match.makesTable && options.types.empty()) {
    importer.FindTypes();
  } else if (match.makesTable) {
    SetTypes(match, options.types);
  }
  const std::unique_ptr<TableFiller> filler = database.Fill({.table = options.table,
                                                             .columns = match.columns,
                                                             .makeTable = match.makesTable,
                                                             .emptyFirst = options.replace && !match.makesTable},
                                                            progress);
  const std::uint64_t rows = importer.Fill(*filler);
  filler->Commit();
  return rows;
}

}  // namespace scrivanta
