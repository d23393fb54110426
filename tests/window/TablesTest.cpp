// The windows that work on tables as a person uses them.
#include "tables/FrmChangeToSDFFileControls.h"
#include "tables/FrmDataGuanLianHeBinControls.h"
#include "tables/FrmFenLanControls.h"
#include "text/Bytes.h"
#include "text/PlatformFile.h"
#include "window/driver/WindowTest.h"

namespace scrivanta {
namespace {

class TablesTest : public WindowTest {};

TEST_F(TablesTest, SetsColumnsAndSplitsThemAgain) {
  app.Start();
  app.Editor().Insert(u"张三\r\n李四\r\n王五");
  app.Menu("mnuFenLan");
  DialogDriver dialog = app.ExpectDialog(u"硬分栏");
  app.Settle();
  EXPECT_EQ(dialog.Text(TxtFenLanPreview), u"张三  王五\r\n李四\r\n");
  EXPECT_FALSE(dialog.IsEnabled(CmbFenLanSplitAt));
  dialog.Type(TxtFenLanCount, u"0").Press(CmdStartFenLan);
  app.ExpectBox({.text = u"“栏数”应在1至100000之间。", .icon = Icon::kCritical, .systemModal = true})
      .Answer(Answer::kOk);
  dialog.Type(TxtFenLanCount, u"3");
  app.Settle();
  EXPECT_EQ(dialog.Text(TxtFenLanPreview), u"张三  李四  王五\r\n");
  dialog.Press(CmdStartFenLan);
  dialog.WaitUntilGone();
  app.ExpectText(u"张三  李四  王五");
  app.ExpectRemark(u"已把3行分成3栏");

  app.Menu("mnuFenLan");
  dialog = app.ExpectDialog(u"硬分栏");
  dialog.Choose(CmbFenLanWay, u"按分隔符拆成表格（TAB符）");
  dialog.Choose(CmbFenLanSplitAt, u"连续空白");
  app.Settle();
  EXPECT_FALSE(dialog.IsEnabled(TxtFenLanCount));
  EXPECT_EQ(dialog.Text(TxtFenLanPreview), u"张三\t李四\t王五\r\n");
  dialog.Press(CmdStartFenLan);
  dialog.WaitUntilGone();
  app.ExpectText(u"张三\t李四\t王五");
  app.Press("Ctrl+Z");
  app.ExpectText(u"张三  李四  王五");
}

TEST_F(TablesTest, JoinsATableAndWritesFixedWidths) {
  const std::filesystem::path second = folder.path() / "second.csv";
  FileSink sink(second);
  sink.Write("2,\xD2\xD2\r\n1,\xBC\xD7\r\n");
  sink.Close();
  app.Start();
  app.Editor().Insert(u"1\t10\r\n2\t5");
  app.Menu("mnuDataGuanLianHeBin");
  DialogDriver dialog = app.ExpectDialog(u"数据关联合并");
  dialog.Press(CmdChooseSecond);
  app.ChooseFile(second);
  EXPECT_EQ(dialog.Text(TxtSecondFile), TextOfPath(second));
  dialog.Choose(CmbSecondDelimiter, u"逗号");
  dialog.Press(CmdStartGuanLian);
  dialog.WaitUntilGone();
  app.ExpectText(u"1\t10\t甲\r\n2\t5\t乙");

  app.Menu("mnuChangeToSDFFile");
  dialog = app.ExpectDialog(u"转为SDF文件");
  dialog.Type(TxtSDFAligns, u"lr");
  dialog.Press(CmdSaveLayout);
  app.ChooseFile(folder.path() / "layout.txt");
  app.Settle();
  dialog.Press(CmdStartChangeToSDF);
  dialog.WaitUntilGone();
  app.ExpectText(u"110甲\r\n2 5乙");

  app.Menu("mnuChangeToSDFFile");
  dialog = app.ExpectDialog(u"转为SDF文件");
  dialog.Press(OptFromSDF);
  dialog.Press(CmdLoadLayout);
  app.ChooseFile(folder.path() / "layout.txt");
  app.Settle();
  EXPECT_EQ(dialog.Text(TxtSDFWidths), u"1,2,2");
  EXPECT_EQ(dialog.Text(TxtSDFPreview), u"1\t10\t甲\r\n2\t5\t乙\r\n");
  dialog.Press(CmdStartChangeToSDF);
  dialog.WaitUntilGone();
  app.ExpectText(u"1\t10\t甲\r\n2\t5\t乙");
}

}  // namespace
}  // namespace scrivanta
