#include <gtest/gtest.h>

#include "database/DatabaseDialog.h"
#include "database/DatabaseError.h"
#include "database/SourceText.h"
#include "database/StatementText.h"
#include "support/ScriptedWorkbench.h"

namespace scrivanta::testing {
namespace {

class ScriptedView final : public DatabaseView {
 public:
  std::u16string Source() const override { return source; }
  void SetSource(const std::u16string& text) override { source = text; }
  void SetSources(const std::vector<std::u16string>& list) override { sources = list; }
  void SetTables(const std::vector<std::u16string>& list) override { tables = list; }
  int ChosenTable() const override { return chosen; }
  std::u16string Statement() const override { return statement; }
  std::u16string TargetTable() const override { return target; }
  void SetTargetTable(const std::u16string& table) override { target = table; }
  Separation Separator() const override { return separation; }
  bool HasHeader() const override { return true; }
  void SetRows(const ShownRows& shown) override { rows = shown; }
  void SetState(const std::u16string& text) override { state = text; }

  std::u16string source;
  std::vector<std::u16string> sources;
  std::vector<std::u16string> tables;
  int chosen = -1;
  std::u16string statement;
  std::u16string target;
  Separation separation = Separation::kTab;
  ShownRows rows;
  std::u16string state;
};

TEST(DatabaseDialog, AnErrandFromImportToExport) {
  const TemporaryFolder folder;
  ScriptedWorkbench workbench;
  ScriptedView view;
  DatabaseDialog dialog(workbench);
  dialog.Start(view);
  EXPECT_THROW(dialog.ExportToDocument(view), DatabaseError);

  view.source = (folder.path() / "书.db").u16string();
  workbench.prompts().Will(Answer::kNo);
  dialog.Open(view);
  EXPECT_THROW(dialog.ImportFromDocument(view), DatabaseError);
  workbench.prompts().Will(Answer::kYes);
  dialog.Open(view);
  EXPECT_TRUE(view.tables.empty());

  // The whole document into a new table; then a selection behind it, and in its place.
  workbench.editor().Open(u"书名\t价\r\n史记\t35\r\n论语\t12\r\n");
  view.target = u"书";
  workbench.prompts().Will(Answer::kCancel);
  dialog.ImportFromDocument(view);
  EXPECT_TRUE(view.tables.empty());
  workbench.prompts().Will(Answer::kOk);
  dialog.ImportFromDocument(view);
  EXPECT_EQ(view.tables, std::vector<std::u16string>{u"书（2行）"});
  EXPECT_EQ(workbench.status, u"导入2行");
  workbench.editor().Open(u"x价\r\n50\r\n", {TextPos(1), 7});
  workbench.prompts().Will(Answer::kYes);
  dialog.ImportFromDocument(view);
  EXPECT_EQ(
      workbench.prompts().messages.back().text,
      u"导入到表“书”的这些列：\n价\n不填的列：书名\n\n【是】加在原有的行后面；【否】先删去原有的行；【取消】不导入。");
  EXPECT_EQ(view.tables, std::vector<std::u16string>{u"书（3行）"});

  view.chosen = 0;
  dialog.ChooseTable(view);
  EXPECT_EQ(view.rows.columns, (std::vector<std::u16string>{u"书名", u"价"}));
  EXPECT_EQ(view.rows.rows.back(), (std::vector<std::u16string>{u"NULL", u"50"}));
  workbench.editor().Open(u"[]", {TextPos(1), 0});
  view.separation = Separation::kComma;
  dialog.ExportToDocument(view);
  EXPECT_EQ(workbench.editor().Text(), u"[书名,价\r\n史记,35\r\n论语,12\r\n,50\r\n]");

  view.statement = u"SELECT 书名 FROM 书 WHERE 价 > 20 ORDER BY 价";
  dialog.Query(view);
  workbench.prompts().Will(folder.path() / "out.csv");
  dialog.ExportToFile(view);
  EXPECT_EQ(ReadWholeFile(folder.path() / "out.csv"), "\xEF\xBB\xBF书名\r\n史记\r\n\r\n");
}

TEST(DatabaseDialog, ASheetIsWrittenAndReadAgain) {
  const TemporaryFolder folder;
  ScriptedWorkbench workbench;
  ScriptedView view;
  DatabaseDialog dialog(workbench);
  view.source = (folder.path() / "a.db").u16string();
  workbench.prompts().Will(Answer::kYes);
  dialog.Open(view);
  const std::u16string table = u"号\t数\t空\r\n0012\t2.5\t\r\n\"行\t3\tx\r\n";
  workbench.editor().Open(table);
  view.target = u"甲";
  workbench.prompts().Will(Answer::kOk);
  dialog.ImportFromDocument(view);
  view.chosen = 0;
  dialog.ChooseTable(view);
  const std::filesystem::path sheet = folder.path() / "out.XLSX";
  workbench.prompts().Will(sheet);
  dialog.ExportToFile(view);
  view.target = u"乙";
  workbench.prompts().Will(sheet);
  workbench.prompts().Will(Answer::kOk);
  dialog.ImportFromFile(view);
  view.chosen = 1;
  dialog.ChooseTable(view);
  workbench.editor().Open(u"");
  dialog.ExportToDocument(view);
  EXPECT_EQ(workbench.editor().Text(), table);
}

TEST(DatabaseDialog, WhatFailsOrIsRefusedChangesNothing) {
  const TemporaryFolder folder;
  ScriptedWorkbench workbench;
  ScriptedView view;
  DatabaseDialog dialog(workbench);
  view.source = (folder.path() / "a.db").u16string();
  view.target = u"t";
  workbench.prompts().Will(Answer::kYes);
  dialog.Open(view);
  workbench.editor().Open(u"a\tb\r\n1\t2\r\n");
  workbench.prompts().Will(Answer::kOk);
  dialog.ImportFromDocument(view);

  workbench.editor().Open(u"a\tb\r\n5\t6\r\nx\t7\r\n");
  workbench.prompts().Will(Answer::kNo);
  EXPECT_THROW(dialog.ImportFromDocument(view), BadRow);
  workbench.editor().Open(u"a\tc\r\n5\t6\r\n");
  EXPECT_THROW(dialog.ImportFromDocument(view), DatabaseError);
  view.statement = u"DELETE FROM t";
  workbench.prompts().Will(Answer::kNo);
  dialog.Query(view);
  EXPECT_THROW(dialog.ExportToDocument(view), DatabaseError);

  view.chosen = 0;
  dialog.ChooseTable(view);
  EXPECT_EQ(view.rows.rows, (std::vector<std::vector<std::u16string>>{{u"1", u"2"}}));
  workbench.interruptAfter = workbench.reports + 1;
  view.statement = u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n) SELECT MAX(i) FROM n";
  workbench.prompts().Will(Answer::kYes);
  EXPECT_THROW(dialog.Query(view), Interrupted);

  // What is carried out once is not carried out again for an export.
  view.statement = u"INSERT INTO t VALUES (8, 9) RETURNING a";
  workbench.prompts().Will(Answer::kYes);
  dialog.Query(view);
  EXPECT_EQ(view.tables, std::vector<std::u16string>{u"t（2行）"});
  EXPECT_THROW(dialog.ExportToDocument(view), DatabaseError);
  EXPECT_EQ(workbench.editor().Text(), u"a\tc\r\n5\t6\r\n");
}

TEST(DatabaseDialog, PasswordsAreAskedAndNeverKept) {
  const TemporaryFolder folder;
  const std::u16string connection = u"DRIVER=SQLite3;Database=" + (folder.path() / "a.db").u16string();
  ScriptedWorkbench workbench;
  ScriptedView view;
  DatabaseDialog dialog(workbench);
  view.source = connection + u";UID=me";
  workbench.prompts().Will(std::u16string(u"ge}heim"));
  dialog.Open(view);
  EXPECT_TRUE(workbench.prompts().inputs.back().hidden);
  view.source = connection + u";Pwd={a;b};UID=me";
  dialog.Open(view);
  EXPECT_EQ(view.sources, std::vector<std::u16string>{connection + u";UID=me"});
  for (const auto& [key, value] : workbench.settings().values) {
    EXPECT_EQ(value, connection + u";UID=me");
  }
  EXPECT_EQ(WithPassword(u"UID=me;", u"a}b"), u"UID=me;PWD={a}}b}");
}

TEST(SourceText, FilesConnectionsAndStatements) {
  EXPECT_TRUE(IsConnectionString(u"DSN=books"));
  EXPECT_TRUE(IsConnectionString(u"DRIVER={a};DBQ=C:\\x.mdb"));
  EXPECT_FALSE(IsConnectionString(u"C:\\a=b.db"));
  EXPECT_FALSE(IsConnectionString(u"books.db"));
  EXPECT_TRUE(OnlyReads(u" \r\n(select 1)"));
  EXPECT_FALSE(OnlyReads(u"selection"));
  EXPECT_FALSE(OnlyReads(u"WITH n AS (SELECT 1) DELETE FROM t"));
  EXPECT_FALSE(OnlyReads(u""));
}

}  // namespace
}  // namespace scrivanta::testing
