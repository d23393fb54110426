// Keys of one's own, the menu of the edit box, the documents used last, and why an entry is grey.
#include <windows.h>

#include <commctrl.h>

#include "shell/window/FrmKeysControls.h"
#include "shell/window/FrmOptionsControls.h"
#include "shell/window/MenuTree.h"
#include "window/driver/StoredSettings.h"
#include "window/driver/WindowProbe.h"
#include "window/driver/WindowTest.h"

namespace scrivanta {
namespace {

class KeysAndMenusTest : public WindowTest {};

TEST_F(KeysAndMenusTest, ACommandGetsAKeyOfOnesOwnAndTheMenusFollow) {
  const auto file = folder.Write(u"名单.txt", Gbk(u" 乙 \r\n 甲 "));
  app.Start();
  app.Open(file);
  app.Menu("mnuOptions");
  DialogDriver options = app.ExpectDialog(u"选项");
  options.Press(CmdKeys);
  DialogDriver keys = app.ExpectDialog(u"快捷键");
  // The third command on lines: trimming.
  LVITEMW row{};
  row.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
  row.state = row.stateMask;
  Send(keys.Control(LstKeys), LVM_SETITEMSTATE, 2, reinterpret_cast<LPARAM>(&row));
  SendMessageW(keys.window(), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(keys.Control(TxtKey)), TRUE);
  app.Press("Ctrl+B");
  EXPECT_EQ(keys.Text(TxtKey), u"Ctrl+B");
  keys.Press(CmdAssignKey);
  EXPECT_EQ(keys.Text(LblKeyAnswer), u"Ctrl+B 已经是“粗体”的快捷键。");
  SendMessageW(keys.window(), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(keys.Control(TxtKey)), TRUE);
  app.Press("Ctrl+Shift+T");
  keys.Press(CmdAssignKey);
  keys.Press(IDOK).WaitUntilGone();
  options.Press(CmdOK).WaitUntilGone();
  EXPECT_EQ(StoredSetting(u"mnuTrimLine", u"Keys"), u"Ctrl+Shift+T");

  app.Press("Ctrl+Shift+T");
  app.ExpectText(u"乙\r\n甲");
  // It stands in the menu of the edit box from now on.
  PostMessageW(app.Editor().window(), WM_CONTEXTMENU, 0, -1);
  app.WaitForPopup();
  app.ChooseInPopup(u'U');
  app.ExpectText(u" 乙 \r\n 甲 ");
}

TEST_F(KeysAndMenusTest, DocumentsUsedLastAreOpenedFromTheMenu) {
  const auto first = folder.Write(u"甲.txt", Gbk(u"甲"));
  const auto second = folder.Write(u"乙.txt", Gbk(u"乙"));
  app.Start();
  const auto own = app.MenuCaptions().size();
  app.Open(first);
  app.Open(second);
  app.MenuEntry("mnuSave");  // as opening the menu does
  EXPECT_EQ(app.MenuCaptions().size(), own + 4);
  constexpr int kSecondOfTheList = 50003;  // the separator is the first
  PostMessageW(app.MainWindow(), WM_COMMAND, kSecondOfTheList, 0);
  app.ExpectText(u"甲");
  app.ExpectStatus(first.u16string());

  Send(app.MainWindow(), WM_MENUSELECT, MAKEWPARAM(*MenuCommandId("mnuCut"), MF_GRAYED),
       reinterpret_cast<LPARAM>(GetMenu(app.MainWindow())));
  app.ExpectStatus(u"要先选中文字");
  Send(app.MainWindow(), WM_MENUSELECT, MAKEWPARAM(0, 0xFFFF), 0);
  app.ExpectStatus(first.u16string());
}

}  // namespace
}  // namespace scrivanta
