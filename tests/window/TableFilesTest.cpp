// The windows that add pinyin initials and merge files.
#include "lines/FrmSortParametersControls.h"
#include "tables/FrmJiaZiMuControls.h"
#include "tables/FrmMergeFileControls.h"
#include "window/driver/WindowTest.h"

namespace scrivanta {
namespace {

using TableFilesTest = WindowTest;

TEST_F(TableFilesTest, AddsInitialsAndSortsByThem) {
  app.Start();
  app.Open(folder.Write(u"名单.txt", Gbk(u"张三\r\n曾一\r\n重庆")));
  app.Menu("mnuSort");
  app.ExpectDialog(u"文件排序").Press(OptPinYin).Press(CmdSort);
  app.ExpectText(u"曾一\r\n重庆\r\n张三");
  app.ExpectDialog(u"文件排序").Press(OptBiHua).Press(CmdSort);
  app.ExpectText(u"张三\r\n重庆\r\n曾一");
  app.Menu("mnuJiaZiMu");
  DialogDriver window = app.ExpectDialog(u"加字母");
  EXPECT_TRUE(window.IsChecked(OptZiMuQian));
  window.Press(OptZiMuLie).Press(ChkXiaoXie).Press(ChkXingMing).Press(CmdJiaZiMu);
  window.WaitUntilGone();
  app.ExpectText(u"张三\tzs\r\n重庆\tcq\r\n曾一\tzy");
  app.ExpectRemark(u"3行已加字母");
  app.Menu("mnuUndo");
  app.ExpectText(u"张三\r\n重庆\r\n曾一");
}

TEST_F(TableFilesTest, MergesDroppedFilesIntoTheDocument) {
  const auto ten = folder.Write(u"第10章.txt", Gbk(u"十"));
  const auto two = folder.Write(u"第2章.txt", Utf8(u"二字文\n"));
  app.Start();
  app.Menu("mnuMergeFile");
  DialogDriver window = app.ExpectDialog(u"合并文件内容");
  EXPECT_EQ(window.Text(TxtMergePattern), u"*.txt");
  app.DropOn(window.window(), {ten, two});
  EXPECT_EQ(window.Items(LstMergeFile), (std::vector{two.u16string(), ten.u16string()}));
  window.Press(ChkMergeTitle).Press(CmdStartMerge);
  window.WaitUntilGone();
  app.ExpectText(u"第2章.txt\r\n二字文\r\n第10章.txt\r\n十\r\n");
  app.ExpectRemark(u"已合并2个文件");
}

}  // namespace
}  // namespace scrivanta
