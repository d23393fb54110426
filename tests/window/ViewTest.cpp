// How the document is shown: zoomed, wrapped, with numbers of its lines.
#include <windows.h>

#include <richedit.h>

#include "shell/window/FrmMainControls.h"
#include "win/InputBoxControls.h"
#include "window/driver/StoredSettings.h"
#include "window/driver/Wait.h"
#include "window/driver/WindowProbe.h"
#include "window/driver/WindowTest.h"

namespace scrivanta {
namespace {

class ViewTest : public WindowTest {
 protected:
  int Zoom() const {
    int percent = 0;
    int hundred = 0;
    SendMessageW(app.Editor().window(), EM_GETZOOM, reinterpret_cast<WPARAM>(&percent),
                 reinterpret_cast<LPARAM>(&hundred));
    return hundred == 0 ? 100 : 100 * percent / hundred;
  }
  RECT BoundsOf(int controlId) const {
    RECT bounds{};
    GetWindowRect(GetDlgItem(app.MainWindow(), controlId), &bounds);
    return bounds;
  }
};

TEST_F(ViewTest, ZoomWrappingAndLineNumbersStayForTheNextDocument) {
  const auto file = folder.Write(u"长行.txt", Gbk(std::u16string(300, u'长') + u"\r\n短\r\n"));
  app.Start();
  app.Open(file);
  PostMessageW(app.Editor().window(), WM_MOUSEWHEEL, MAKEWPARAM(MK_CONTROL, WHEEL_DELTA), 0);
  app.Settle();
  app.ExpectRemark(u"显示比例 110%");
  EXPECT_EQ(Zoom(), 110);
  app.Open(file);
  EXPECT_EQ(Zoom(), 110) << "the control is another one now";
  EXPECT_EQ(StoredSetting(u"Zoom"), u"110");

  const auto lines = [&] { return Send(app.Editor().window(), EM_GETLINECOUNT); };
  EXPECT_EQ(lines(), 3);
  app.Press("Ctrl+W");
  EXPECT_GT(lines(), 3);

  const LONG left = BoundsOf(RichTextBox1).left;
  app.Press("Ctrl+Shift+L");
  EXPECT_EQ(BoundsOf(LineNumbers1).right - BoundsOf(LineNumbers1).left, BoundsOf(RichTextBox1).left - left);
  EXPECT_GT(BoundsOf(RichTextBox1).left, left);
  app.Press("Ctrl+Shift+L");
  EXPECT_EQ(BoundsOf(RichTextBox1).left, left);
  app.Press("Ctrl+0");
  EXPECT_EQ(Zoom(), 100);
}

TEST_F(ViewTest, TheFontLineIsSeenAsAWholeAndChosenInADialog) {
  app.Start();
  app.Menu("mnuFont");
  DialogDriver box = app.ExpectDialog(u"Scrivanta");
  const HWND line = box.Control(IDC_INPUT_VALUE);
  EXPECT_EQ(Send(line, EM_GETSEL), 0) << "the caret stands at the beginning";
  RECT inner{};
  GetClientRect(line, &inner);
  const auto lastFigure = Send(line, EM_POSFROMCHAR, box.Text(IDC_INPUT_VALUE).size() - 1);
  EXPECT_LT(LOWORD(lastFigure), inner.right);
  PostMessageW(box.Control(IDC_INPUT_ASSISTANT), BM_CLICK, 0, 0);
  const HWND fonts = WaitFor("the dialog of fonts", [&]() -> HWND {
    const HWND last = GetLastActivePopup(box.window());
    return last != box.window() && IsWindowVisible(last) != FALSE ? last : nullptr;
  });
  PostMessageW(GetDlgItem(fonts, IDCANCEL), BM_CLICK, 0, 0);
  WaitUntil("the dialog of fonts to go", [fonts] { return IsWindow(fonts) == FALSE; });
  box.Press(IDCANCEL).WaitUntilGone();
}

}  // namespace
}  // namespace scrivanta
