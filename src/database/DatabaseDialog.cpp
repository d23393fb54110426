#include "database/DatabaseDialog.h"

#include <algorithm>

#include "database/DatabaseError.h"
#include "database/DatabaseSource.h"
#include "database/JetDriver.h"
#include "database/RecordSource.h"
#include "database/RewindableMemory.h"
#include "database/SheetSource.h"
#include "database/SourceText.h"
#include "database/StatementText.h"
#include "database/TableExport.h"
#include "shell/workbench/FormKey.h"
#include "text/AtomicFile.h"
#include "text/DecimalText.h"
#include "text/PlatformFile.h"
#include "text/UpperCase.h"

namespace scrivanta {

namespace {

constexpr std::size_t kMostSources = 20;
constexpr std::size_t kMostRows = 100;        // that are shown
constexpr std::size_t kMostShownUnits = 200;  // of a value
constexpr std::u16string_view kSheetName = u"导出";
constexpr std::u16string_view kByteOrderMark = u"\uFEFF";

std::u16string SourcesKey() {
  return FormListKey(u"FrmDatabase", u"CmbSource");
}

std::vector<std::u16string> Lines(std::u16string_view text) {
  std::vector<std::u16string> lines;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find(u"\r\n"), text.size());
    if (end > 0) {
      lines.emplace_back(text.substr(0, end));
    }
    text.remove_prefix(std::min(end + 2, text.size()));
  }
  return lines;
}

// A value on one line of its cell.
std::u16string ShownValue(std::u16string_view value) {
  std::u16string shown(value.substr(0, kMostShownUnits));
  std::ranges::replace_if(
      shown, [](char16_t unit) { return unit < u' '; }, u' ');
  return value.size() > kMostShownUnits ? shown + u"…" : shown;
}

std::u16string Joined(const std::vector<std::u16string>& names) {
  std::u16string text;
  for (const std::u16string& name : names) {
    text += (text.empty() ? u"" : u"，") + name;
  }
  return text;
}

std::vector<std::u16string> Names(const std::vector<DatabaseColumn>& columns) {
  std::vector<std::u16string> names;
  std::ranges::transform(columns, std::back_inserter(names), &DatabaseColumn::name);
  return names;
}

// The driver of Jet says only in words that a file wants a password.
bool SpeaksOfPassword(const DatabaseError& failure) {
  const std::u16string& words = failure.chinese();
  return words.find(u"password") != std::u16string::npos || words.find(u"密码") != std::u16string::npos;
}

bool HasExtension(const std::filesystem::path& file, std::u16string_view extension) {
  return UpperCase(TextOfPath(file.extension())) == extension;
}

Separation SeparationOfFile(const std::filesystem::path& file, Separation chosen) {
  return HasExtension(file, u".CSV") ? Separation::kComma : chosen;
}

}  // namespace

void DatabaseDialog::Start(DatabaseView& view) {
  const std::vector<std::u16string> sources = Lines(workbench_.settings().Get(SourcesKey()));
  view.SetSources(sources);
  if (!sources.empty()) {
    view.SetSource(sources.front());
  }
}

void DatabaseDialog::Browse(DatabaseView& view) {
  const std::filesystem::path file =
      workbench_.prompts().AskForFile({.filter = u"*.db;*.sqlite;*.sqlite3;*.mdb;*.accdb"});
  if (!file.empty()) {
    view.SetSource(TextOfPath(file));
    Open(view);
  }
}

Database& DatabaseDialog::Opened() const {
  if (database_ == nullptr) {
    throw DatabaseError("no database is open", u"请先打开一个数据库。");
  }
  return *database_;
}

void DatabaseDialog::Open(DatabaseView& view) {
  const std::u16string text = view.Source();
  if (text.empty()) {
    Browse(view);
    return;
  }
  database_.reset();
  shown_.reset();
  view.SetTables({});
  view.SetRows({});
  Connect(text);
  if (database_ == nullptr) {
    return;
  }
  Remember(view, text);
  const std::unique_ptr<BusyWork> work = workbench_.StartWork();
  ListTables(view, work->progress());
}

void DatabaseDialog::Connect(std::u16string_view text) {
  if (IsConnectionString(text)) {
    std::u16string connection(text);
    if (WantsPassword(connection)) {
      connection = WithPassword(connection, workbench_.prompts().Input({.prompt = u"密码：", .hidden = true}));
    }
    database_ = ConnectTo({.file = {}, .connection = connection}, MissingFile::kRefused);
    return;
  }
  MissingFile missing = MissingFile::kRefused;
  if (!std::filesystem::exists(PathOfText(text))) {
    const Answer answer = workbench_.prompts().Ask({.text = std::u16string(text) + u"\n文件不存在，是否新建？",
                                                    .buttons = Buttons::kYesNo,
                                                    .icon = Icon::kQuestion});
    if (answer != Answer::kYes) {
      return;
    }
    missing = MissingFile::kMade;
  }
  try {
    database_ = ConnectTo({.file = std::u16string(text)}, missing);
  } catch (const DatabaseError& failure) {
    if (!IsJetFile(PathOfText(text)) || !SpeaksOfPassword(failure)) {
      throw;
    }
    const std::u16string password = workbench_.prompts().Input({.prompt = u"密码：", .hidden = true});
    database_ = ConnectTo({.file = std::u16string(text), .password = password}, missing);
  }
}

void DatabaseDialog::Remember(DatabaseView& view, std::u16string_view source) {
  const std::u16string kept = WithoutPassword(source);
  std::vector<std::u16string> sources = Lines(workbench_.settings().Get(SourcesKey()));
  std::erase(sources, kept);
  sources.insert(sources.begin(), kept);
  sources.resize(std::min(sources.size(), kMostSources));
  std::u16string lines;
  for (const std::u16string& line : sources) {
    lines += (lines.empty() ? u"" : u"\r\n") + line;
  }
  workbench_.settings().Save(SourcesKey(), lines);
  view.SetSources(sources);
  view.SetSource(kept);
}

void DatabaseDialog::ListTables(DatabaseView& view, Progress& progress) {
  tables_ = Opened().Tables(progress);
  std::vector<std::u16string> shown;
  for (const std::u16string& table : tables_) {
    shown.push_back(table + u"（" + DecimalText(Opened().CountRows(table, progress)) + u"行）");
  }
  view.SetTables(shown);
  view.SetState(u"共" + DecimalText(tables_.size()) + u"个表");
}

void DatabaseDialog::ChooseTable(DatabaseView& view) {
  const int chosen = view.ChosenTable();
  if (chosen < 0) {
    return;
  }
  const std::u16string table = tables_[static_cast<std::size_t>(chosen)];
  view.SetTargetTable(table);
  const std::unique_ptr<BusyWork> work = workbench_.StartWork();
  const auto rows = Opened().ReadTable(table, work->progress());
  shown_ = Shown{true, table};
  Preview(view, *rows, table);
}

void DatabaseDialog::Query(DatabaseView& view) {
  const std::u16string statement = view.Statement();
  Database& database = Opened();
  const bool onlyReads = OnlyReads(statement);
  if (!onlyReads && workbench_.prompts().Ask({.text = u"这条语句会改动数据库，是否执行？",
                                              .buttons = Buttons::kYesNo,
                                              .icon = Icon::kQuestion,
                                              .defaultAnswer = Answer::kNo}) != Answer::kYes) {
    return;
  }
  const std::unique_ptr<BusyWork> work = workbench_.StartWork();
  auto rows = database.Query(statement, work->progress());
  // What changes the database is not carried out once more for an export.
  shown_ = onlyReads ? std::optional(Shown{false, statement}) : std::nullopt;
  Preview(view, *rows, u"查询");
  if (!onlyReads) {
    rows.reset();
    ListTables(view, work->progress());
    view.SetState(u"语句已执行");
  }
}

void DatabaseDialog::Preview(DatabaseView& view, RowReader& rows, std::u16string_view what) const {
  ShownRows shown{.columns = rows.columns(), .rows = {}};
  DatabaseRow row;
  while (shown.rows.size() < kMostRows && rows.Next(row)) {
    std::vector<std::u16string>& values = shown.rows.emplace_back();
    for (std::size_t i = 0; i < row.size(); ++i) {
      values.push_back(row.IsNull(i) ? u"NULL" : ShownValue(row[i]));
    }
  }
  view.SetRows(shown);
  const bool isCut = shown.rows.size() == kMostRows;
  view.SetState(std::u16string(what) + (isCut ? u"：前" : u"：") + DecimalText(shown.rows.size()) + u"行");
}

const DatabaseDialog::Shown& DatabaseDialog::RequireShown() const {
  Opened();
  if (!shown_) {
    throw DatabaseError("nothing is chosen", u"请先选择一个表，或执行一个查询。");
  }
  return *shown_;
}

std::unique_ptr<RowReader> DatabaseDialog::ReadShown(Progress& progress) const {
  const Shown& shown = RequireShown();
  return shown.isTable ? database_->ReadTable(shown.text, progress) : database_->Query(shown.text, progress);
}

std::string DatabaseDialog::Exported(DatabaseView& view, Separation separation, std::uint64_t& count) const {
  const std::unique_ptr<BusyWork> work = workbench_.StartWork();
  const auto rows = ReadShown(work->progress());
  StringSink sink;
  LineWriter out(sink);
  count = ExportRows(*rows, out,
                     {.format = {.separation = separation, .encoding = Encoding::kUtf8}, .header = view.HasHeader()},
                     work->progress());
  out.Flush();
  return sink.bytes();
}

void DatabaseDialog::ExportToDocument(DatabaseView& view) {
  std::uint64_t count = 0;
  const std::u16string text = Decode(Encoding::kUtf8, Exported(view, view.Separator(), count));
  workbench_.editor().ReplaceSelection(text);
  view.SetState(u"已导出" + DecimalText(count) + u"行到文档");
  workbench_.ShowStatus(u"导出" + DecimalText(count) + u"行");
}

void DatabaseDialog::ExportToFile(DatabaseView& view) {
  RequireShown();
  const std::filesystem::path file = workbench_.prompts().AskForFile({.filter = u"*.csv;*.txt;*.xlsx"});
  if (file.empty()) {
    return;
  }
  if (std::filesystem::exists(file) &&
      workbench_.prompts().Ask({.text = TextOfPath(file) + u"\n文件已经存在，是否替换？",
                                .buttons = Buttons::kYesNo,
                                .icon = Icon::kQuestion,
                                .defaultAnswer = Answer::kNo}) != Answer::kYes) {
    return;
  }
  std::uint64_t count = 0;
  {
    const std::unique_ptr<BusyWork> work = workbench_.StartWork();
    AtomicFile target(file);
    count = HasExtension(file, u".XLSX")
                ? ExportToSheet(view, target, work->progress())
                : ExportToText(view, target, SeparationOfFile(file, view.Separator()), work->progress());
    target.Commit();
  }
  view.SetState(u"已导出" + DecimalText(count) + u"行到" + TextOfPath(file.filename()));
}

std::uint64_t DatabaseDialog::ExportToText(DatabaseView& view, ByteSink& sink, Separation separation,
                                           Progress& progress) const {
  const auto rows = ReadShown(progress);
  LineWriter out(sink);
  // With its mark, UTF-8 is known to every program that reads tables, and loses nothing.
  out.WriteRaw(Encode(Encoding::kUtf8, kByteOrderMark));
  const std::uint64_t count = ExportRows(
      *rows, out, {.format = {.separation = separation, .encoding = Encoding::kUtf8}, .header = view.HasHeader()},
      progress);
  out.Flush();
  return count;
}

std::uint64_t DatabaseDialog::ExportToSheet(DatabaseView& view, ByteSink& sink, Progress& progress) const {
  const auto rows = ReadShown(progress);
  std::uint64_t count = 0;
  WriteSheetTo(sink, workbench_.folders().temporary, {.name = kSheetName, .header = view.HasHeader()},
               [&](SheetWriter& sheet) { count = ExportSheet(*rows, sheet, {.header = view.HasHeader()}, progress); });
  return count;
}

void DatabaseDialog::ImportFromDocument(DatabaseView& view) {
  Editor& editor = workbench_.editor();
  ImportText(view, editor.Selection().empty() ? editor.Text() : editor.SelectedText(), view.Separator());
}

void DatabaseDialog::ImportFromFile(DatabaseView& view) {
  Opened();
  const std::filesystem::path file = workbench_.prompts().AskForFile({.filter = u"*.csv;*.txt;*.xlsx"});
  if (file.empty()) {
    return;
  }
  if (HasExtension(file, u".XLSX")) {
    const Sheet sheet = [&] {
      const std::unique_ptr<BusyWork> work = workbench_.StartWork();
      return ReadFirstSheet(ReadWholeFile(file), work->progress());
    }();
    Import(view, [&sheet](Progress&) { return std::make_unique<SheetSource>(sheet); });
  } else {
    ImportText(view, workbench_.document().TextOfFile(file), SeparationOfFile(file, view.Separator()));
  }
}

void DatabaseDialog::ImportText(DatabaseView& view, std::u16string_view text, Separation separation) {
  const std::string bytes = Encode(Encoding::kUtf8, text);
  RewindableMemory source(bytes);
  Import(view, [&source, separation](Progress& progress) {
    source.Rewind();
    return std::make_unique<RecordSource>(
        source, [&source] { source.Rewind(); }, RecordFormat{.separation = separation, .encoding = Encoding::kUtf8},
        progress);
  });
}

void DatabaseDialog::Import(DatabaseView& view, const OpenRows& open) {
  Database& database = Opened();
  const ImportOptions options{.table = view.TargetTable(), .header = view.HasHeader()};
  if (options.table.empty()) {
    throw DatabaseError("no table is named", u"请写出要导入到哪个表。");
  }
  NoProgress progress;
  const auto confirmed = Confirm(PlanImport(database, *open(progress), options), options);
  if (!confirmed) {
    return;
  }
  std::uint64_t count = 0;
  {
    const std::unique_ptr<BusyWork> work = workbench_.StartWork();
    count = ImportRows(database, *open(work->progress()), *confirmed, work->progress());
    ListTables(view, work->progress());
  }
  view.SetState(u"已导入" + DecimalText(count) + u"行到表“" + options.table + u"”");
  workbench_.ShowStatus(u"导入" + DecimalText(count) + u"行");
}

std::optional<ImportOptions> DatabaseDialog::Confirm(const ColumnMatch& match, ImportOptions options) const {
  if (match.makesTable) {
    const Answer answer = workbench_.prompts().Ask(
        {.text = u"新建表“" + options.table + u"”，列：\n" + Joined(Names(match.columns)) + u"\n列的类型由数据决定。",
         .buttons = Buttons::kOkCancel,
         .icon = Icon::kQuestion});
    return answer == Answer::kOk ? std::optional(options) : std::nullopt;
  }
  if (match.unknown.empty()) {
    std::u16string text = u"导入到表“" + options.table + u"”的这些列：\n" + Joined(Names(match.columns));
    if (!match.notFilled.empty()) {
      text += u"\n不填的列：" + Joined(match.notFilled);
    }
    const Answer answer =
        workbench_.prompts().Ask({.text = text + u"\n\n【是】加在原有的行后面；【否】先删去原有的行；【取消】不导入。",
                                  .buttons = Buttons::kYesNoCancel,
                                  .icon = Icon::kQuestion});
    options.replace = answer == Answer::kNo;
    return answer == Answer::kCancel ? std::nullopt : std::optional(options);
  }
  return options;  // the import itself names what is unknown
}

}  // namespace scrivanta
