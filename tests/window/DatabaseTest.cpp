#include <windows.h>

#include <commctrl.h>

#include "database/FrmDatabaseControls.h"
#include "window/driver/Wait.h"
#include "window/driver/WindowProbe.h"
#include "window/driver/WindowTest.h"

namespace scrivanta {
namespace {

class DatabaseTest : public WindowTest {};

// A table from the document into a new file of SQLite, looked at, asked, and back into the document.
TEST_F(DatabaseTest, FromTheDocumentAndBack) {
  const std::u16string file = (folder.path() / u"书目.db").u16string();
  app.Start();
  app.Editor().Insert(u"书名\t价\r\n史记\t35\r\n𠮷野\t12\r\n");
  app.Menu("mnuDatabase");
  DialogDriver dialog = app.ExpectDialog(u"数据库交换");
  dialog.Type(CmbSource, file).Press(CmdOpenSource);
  app.ExpectBox({.text = file + u"\n文件不存在，是否新建？", .buttons = Buttons::kYesNo, .icon = Icon::kQuestion})
      .Answer(Answer::kYes);
  EXPECT_EQ(dialog.Text(LblState), u"共0个表");
  dialog.Type(TxtTable, u"书").Press(CmdFromDocument);
  app.ExpectBox({.text = u"新建表“书”，列：\n书名，价\n列的类型由数据决定。",
                 .buttons = Buttons::kOkCancel,
                 .icon = Icon::kQuestion})
      .Answer(Answer::kOk);
  EXPECT_EQ(dialog.Items(LstTables), std::vector<std::u16string>{u"书（2行）"});
  dialog.Choose(LstTables, u"书（2行）");
  EXPECT_EQ(Send(dialog.Control(LvwRows), LVM_GETITEMCOUNT), 2);
  dialog.Type(TxtQuery, u"SELECT 价, 书名 FROM 书 ORDER BY 价").Press(CmdQuery);
  EXPECT_EQ(dialog.Text(LblState), u"查询：2行");
  dialog.Type(TxtQuery, u"SELECT 无 FROM 书").Press(CmdQuery);
  app.ExpectBox({.text = u"数据库不接受这个操作：no such column: 无", .icon = Icon::kCritical, .systemModal = true})
      .Answer(Answer::kOk);
  dialog.Press(CmdToDocument).Press(CmdCloseDatabase);
  dialog.WaitUntilGone();
  app.ExpectText(u"书名\t价\r\n史记\t35\r\n𠮷野\t12\r\n价\t书名\r\n12\t𠮷野\r\n35\t史记\r\n");
}

// A statement that would never end is stopped with Esc; the table is as it was.
TEST_F(DatabaseTest, EscLeavesTheDatabaseAsItWas) {
  const std::u16string file = (folder.path() / u"数.db").u16string();
  app.Start();
  app.Editor().Insert(u"数\r\n1\r\n2\r\n");
  app.Menu("mnuDatabase");
  DialogDriver dialog = app.ExpectDialog(u"数据库交换");
  dialog.Type(CmbSource, file).Press(CmdOpenSource);
  app.ExpectBox({.text = file + u"\n文件不存在，是否新建？", .buttons = Buttons::kYesNo, .icon = Icon::kQuestion})
      .Answer(Answer::kYes);
  dialog.Type(TxtTable, u"表").Press(CmdFromDocument);
  app.ExpectBox({.text = u"新建表“表”，列：\n数\n列的类型由数据决定。",
                 .buttons = Buttons::kOkCancel,
                 .icon = Icon::kQuestion})
      .Answer(Answer::kOk);
  dialog.Type(TxtQuery,
              u"INSERT INTO 表 WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n) SELECT i FROM n");
  PostMessageW(dialog.window(), WM_COMMAND, CmdQuery, reinterpret_cast<LPARAM>(dialog.Control(CmdQuery)));
  const HWND question = WaitFor("the question before a change",
                                [] { return FindTopWindow(GetCurrentProcessId(), kDialogClass, u"Scrivanta"); });
  PostMessageW(question, WM_COMMAND, IDYES, 0);
  app.ExpectInterruptWindow();
  app.Press("Esc");
  WaitUntil("the window to be free again", [&dialog] { return IsWindowEnabled(dialog.window()) != FALSE; });
  dialog.Press(CmdOpenSource);
  EXPECT_EQ(dialog.Items(LstTables), std::vector<std::u16string>{u"表（2行）"});
  dialog.Press(CmdCloseDatabase);
  dialog.WaitUntilGone();
}

}  // namespace
}  // namespace scrivanta
