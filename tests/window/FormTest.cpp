// Dialogs of the tests' own under the form store.
#include <windows.h>

#include <string>

#include <gtest/gtest.h>

#include "shell/services/ScrivantaForm.h"
#include "support/ScriptedWorkbench.h"
#include "win/Handles.h"
#include "win/Monitors.h"

namespace scrivanta {
namespace {

enum Id { kText = 1, kCheck, kFirst, kSecond, kCombo, kPick, kList };

class TestDialog {
 public:
  explicit TestDialog(DWORD frame)
      : window_(CreateWindowExW(0, L"#32770", L"form", WS_POPUP | WS_CAPTION | frame, 100, 80, 300, 200, nullptr,
                                nullptr, nullptr, nullptr)) {
    Add(kText, L"EDIT", ES_MULTILINE);
    Add(kCheck, L"BUTTON", BS_AUTOCHECKBOX);
    Add(kFirst, L"BUTTON", BS_AUTORADIOBUTTON);
    Add(kSecond, L"BUTTON", BS_AUTORADIOBUTTON);
    Add(kCombo, L"COMBOBOX", CBS_DROPDOWN);
    Add(kPick, L"COMBOBOX", CBS_DROPDOWNLIST);
    Add(kList, L"LISTBOX", 0);
    for (const wchar_t* item : {L"one", L"two"}) {
      SendMessageW(Item(kList), LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(item));
      SendMessageW(Item(kPick), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(item));
    }
  }

  HWND handle() const { return window_.get(); }
  HWND Item(int id) const { return GetDlgItem(window_.get(), id); }
  ScrivantaForm Form() const {
    return {window_.get(),
            u"FrmTest",
            {{kText, u"Text1"},
             {kCheck, u"Check1"},
             {kFirst, u"Option1", 0},
             {kSecond, u"Option1", 1},
             {kCombo, u"Combo1"},
             {kPick, u"Combo2"},
             {kList, u"List1"}}};
  }

 private:
  void Add(int id, const wchar_t* className, DWORD style) {
    CreateWindowExW(0, className, L"", WS_CHILD | WS_VISIBLE | style, 0, 0, 100, 60, window_.get(),
                    reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), nullptr, nullptr);
  }

  OwnedWindow window_;
};

RECT Bounds(HWND window) {
  RECT bounds{};
  GetWindowRect(window, &bounds);
  return bounds;
}

TEST(Form, GivesANewDialogWhatTheOldOneHeld) {
  testing::MapSettings settings;
  {
    const TestDialog dialog(WS_THICKFRAME);
    SetWindowTextW(dialog.Item(kText), L"\x4E2D\r\nb");
    SendMessageW(dialog.Item(kCheck), BM_SETCHECK, BST_CHECKED, 0);
    SendMessageW(dialog.Item(kSecond), BM_SETCHECK, BST_CHECKED, 0);
    SendMessageW(dialog.Item(kCombo), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(L"item"));
    SetWindowTextW(dialog.Item(kCombo), L"typed");
    SendMessageW(dialog.Item(kPick), CB_SETCURSEL, 1, 0);
    SendMessageW(dialog.Item(kList), LB_SETCURSEL, 1, 0);
    SetWindowPos(dialog.handle(), nullptr, 150, 120, 450, 240, SWP_NOZORDER | SWP_NOACTIVATE);
    SaveForm(dialog.Form(), settings);
  }
  const TestDialog dialog(WS_THICKFRAME);
  ScrivantaForm form = dialog.Form();
  RestoreForm(form, settings);
  const std::vector<FormControl> controls = form.Controls();
  ASSERT_EQ(controls.size(), 7U);
  EXPECT_EQ(controls[0].text, u"中\r\nb");
  EXPECT_TRUE(controls[1].checked);
  EXPECT_FALSE(controls[2].checked);
  EXPECT_TRUE(controls[3].checked);
  EXPECT_EQ(controls[4].text, u"typed");
  EXPECT_EQ(controls[4].items, std::vector<std::u16string>{u"item"});
  EXPECT_EQ(controls[5].text, u"two");
  EXPECT_EQ(controls[6].text, u"two");
  const RECT bounds = Bounds(dialog.handle());
  EXPECT_EQ(bounds.left, 150);
  EXPECT_EQ(bounds.top, 120);
  EXPECT_EQ(bounds.right - bounds.left, 450);
  EXPECT_EQ(bounds.bottom - bounds.top, 240);
  EXPECT_FALSE(IsWindowVisible(dialog.handle()));
}

TEST(Form, StaysOnTheScreenAndKeepsAFixedSize) {
  const TestDialog dialog(0);
  dialog.Form().SetPlacement(
      {.left = 1'000'000, .top = -500'000, .width = 15'000, .height = 15'000, .maximized = true});
  const RECT bounds = Bounds(dialog.handle());
  const RECT screen = WorkAreas().front();
  EXPECT_LT(bounds.left, screen.right);
  EXPECT_GE(bounds.top, screen.top);
  EXPECT_EQ(bounds.right - bounds.left, 300);
  EXPECT_EQ(bounds.bottom - bounds.top, 200);
  EXPECT_FALSE(IsZoomed(dialog.handle()));
}

}  // namespace
}  // namespace scrivanta
