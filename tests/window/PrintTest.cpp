// Printing, on a printer that puts its pages into a file.
#include <windows.h>

#include <string>

#include "window/driver/StoredSettings.h"
#include "window/driver/TestPrinter.h"
#include "window/driver/WindowTest.h"

namespace scrivanta {
namespace {

// Controls of the platform's dialogs.
constexpr int kSelectionOption = 1057;
constexpr int kPagesOption = 1058;
constexpr int kFirstPageBox = 1152;
constexpr int kLastPageBox = 1153;
constexpr int kLeftMarginBox = 1155;

class PrintTest : public WindowTest {
 protected:
  DialogDriver AskToPrint() {
    app.Menu("mnuPrint");
    return app.ExpectDialog(u"打印");
  }
  void Confirm(DialogDriver& dialog) {
    dialog.Press(IDOK);
    dialog.WaitUntilGone();
    app.Settle();
  }
};

TEST_F(PrintTest, WithoutAPrinterTheUserIsTold) {
  if (TestPrinter::IsAnyInstalled()) {
    GTEST_SKIP() << "this machine has a printer";
  }
  app.Start();
  app.Menu("mnuPrint");
  app.ExpectBox({.text = u"文档是空的，没有可打印的内容！", .icon = Icon::kInformation}).Answer(Answer::kOk);
  app.Type(u"正文");
  for (const char* command : {"mnuPrint", "mnuShowPageSetupDlg"}) {
    app.Menu(command);
    app.ExpectBox({.text = u"没有可用的打印机！\n请先在系统的设置中添加打印机。",
                   .icon = Icon::kCritical,
                   .systemModal = true})
        .Answer(Answer::kOk);
  }
  app.ExpectText(u"正文");
}

TEST_F(PrintTest, PrintsTheDocumentPartsOfItAndOtherMargins) {
  const TestPrinter printer(folder);
  // A small page takes eight lines: each line costs the emulated printer up to a second.
  StoreSetting(u"PrintMarginBottom", u"23000");
  std::string lines;
  for (int i = 1; i <= 20; ++i) {
    lines += "<" + std::to_string(i) + ">" + Gbk(u"行") + "\r\n";
  }
  app.Start(folder.Write(u"list.txt", lines).u16string());

  DialogDriver dialog = AskToPrint();
  EXPECT_FALSE(dialog.IsEnabled(kSelectionOption)) << "nothing is selected";
  Confirm(dialog);
  const PrintedOutput whole = printer.TakeOutput();
  EXPECT_EQ(whole.title, "list.txt");
  EXPECT_EQ(whole.pages, 3U);
  EXPECT_FALSE(whole.landscape);
  app.ExpectRemark(u"已打印 3 页");

  dialog = AskToPrint();
  dialog.Press(kPagesOption).Type(kFirstPageBox, u"2").Type(kLastPageBox, u"9");
  Confirm(dialog);
  EXPECT_EQ(printer.TakeOutput().pages, 2U);

  app.Editor().SelectText(u"<7>");
  dialog = AskToPrint();
  dialog.Press(kSelectionOption);
  Confirm(dialog);
  EXPECT_EQ(printer.TakeOutput().pages, 1U);

  AskToPrint().Close();
  EXPECT_FALSE(printer.HasOutput());

  // Kept for the next time, and for the next run.
  app.Menu("mnuShowPageSetupDlg");
  dialog = app.ExpectDialog(u"页面设置");
  dialog.Type(kLeftMarginBox, u"35");
  Confirm(dialog);
  EXPECT_EQ(StoredSetting(u"PrintMarginLeft"), u"3500");
  EXPECT_EQ(StoredSetting(u"PrintMarginTop"), u"2000");
  StoreSetting(u"PrintLandscape", u"1");
  dialog = AskToPrint();
  Confirm(dialog);
  EXPECT_TRUE(printer.TakeOutput().landscape);
}

}  // namespace
}  // namespace scrivanta
