// Of a large text the first page can be read while the rest is loaded.
#include <windows.h>

#include "shell/window/FrmMainControls.h"
#include "window/driver/Wait.h"
#include "window/driver/WindowProbe.h"
#include "window/driver/WindowTest.h"

namespace scrivanta {
namespace {

class FirstPageTest : public WindowTest {
 protected:
  // The box above the edit box; null while there is none.
  HWND FirstPage() const {
    const HWND box = GetDlgItem(app.MainWindow(), RichTextBox0);
    return box != nullptr && IsWindowVisible(box) != FALSE ? box : nullptr;
  }
};

TEST_F(FirstPageTest, StandsWhileTheRestIsLoadedAndGoesWhenItIsStopped) {
  std::u16string text;
  for (int line = 1; line <= 250'000; ++line) {
    text += u"第行，这是一个大文件\r\n";
  }
  const auto large = folder.Write(u"大文件.txt", Gbk(u"开头\r\n" + text));
  const auto small = folder.Write(u"小文件.txt", Gbk(u"原稿"));
  app.Start(small.u16string());
  app.StartToDrop(large);
  const HWND page = WaitFor("the first page", [this] { return FirstPage(); });
  EXPECT_TRUE(TextOf(page).starts_with(u"开头"));
  EXPECT_EQ(Shown(app.Text()), Shown(u"原稿")) << "nothing has taken the place of the document yet";
  app.ExpectInterruptWindow();
  EXPECT_EQ(FirstPage(), page);
  app.Press("Esc");
  WaitUntil("the first page to go", [page] { return IsWindow(page) == FALSE; });
  app.ExpectText(u"原稿");
  app.ExpectStatus(small.u16string());
}

}  // namespace
}  // namespace scrivanta
