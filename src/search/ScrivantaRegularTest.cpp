#include "search/ScrivantaRegularTest.h"

#include <windows.h>

#include "search/ScrivantaComboBox.h"
#include "search/ScrivantaRegularTestControls.h"
#include "search/SyntaxReference.h"

namespace scrivanta {

namespace {

constexpr wchar_t kCaption[] = L"RegularTest正则表达式测试";

}  // namespace

ScrivantaRegularTest::ScrivantaRegularTest(WindowHost& host, Workbench& workbench)
    : Dialog(host, IDD_REGULAR_TEST), logic_(workbench) {}

void ScrivantaRegularTest::Show(HWND owner) {
  if (const HWND open = FindWindowW(nullptr, kCaption)) {
    ShowWindow(open, SW_SHOWNORMAL);
    SetForegroundWindow(open);
    if (open == handle()) {
      FocusOn(Combo1);
    }
    return;
  }
  ShowModeless(owner);
}

void ScrivantaRegularTest::OnInit() {
  DragByBody();
  SetControlText(Text1, kSyntaxReference);
  SetToolTip(Combo1, u"F1键打看配置文件查看；F2将条目过滤到前面，方便选择");
  SetToolTip(Command3, u"一般用于手动修改INI文件后,此时上面的组合框并未更新,按此更新");
  HookKeys(Combo1, [this](WPARAM key) { return OnComboKey(key); });
  logic_.Open(*this);
  FocusOn(Combo1);
}

bool ScrivantaRegularTest::OnCommand(int controlId, int notification) {
  if (controlId == IDOK) {
    logic_.Test(*this);
    return true;
  }
  if (notification != BN_CLICKED) {
    return false;
  }
  switch (controlId) {
    case Command1:
      logic_.Test(*this);
      return true;
    case Command2:
      Close();
      return true;
    case Command3:
      logic_.Reload(*this);
      return true;
    default:
      return false;
  }
}

void ScrivantaRegularTest::OnClose() {
  logic_.Close(*this);
}

bool ScrivantaRegularTest::OnComboKey(WPARAM key) {
  if (key == VK_F1) {
    logic_.OpenIniFile();
    return true;
  }
  if (key == VK_F2) {
    logic_.FilterHistory(*this);
    return true;
  }
  return false;
}

std::u16string ScrivantaRegularTest::PatternBox() const {
  return ControlText(Combo1);
}

void ScrivantaRegularTest::SetPatternBox(const std::u16string& text, const std::vector<std::u16string>& list) {
  FillComboBox(Control(Combo1), text, list);
}

DialogPlace ScrivantaRegularTest::Place() const {
  const POINT corner = CornerInTwips();
  return {corner.x, corner.y};
}

void ScrivantaRegularTest::SetPlace(const DialogPlace& place) {
  MoveToTwips({place.left, place.top});
}

}  // namespace scrivanta
