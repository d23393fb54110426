#include "shell/window/FrmOptionsControls.h"
#include "win/Registry.h"
#include "window/driver/WindowProbe.h"
#include "window/driver/WindowTest.h"

namespace scrivanta {
namespace {

constexpr wchar_t kSettingsKey[] = L"Software\\Scrivanta";
constexpr char16_t kSection[] = u"Software\\Scrivanta\\Settings";

class OptionsDialogTest : public WindowTest {
 protected:
  OptionsDialogTest() { RegDeleteTreeW(HKEY_CURRENT_USER, kSettingsKey); }
  ~OptionsDialogTest() override { RegDeleteTreeW(HKEY_CURRENT_USER, kSettingsKey); }

  static std::u16string Setting(const std::u16string& name) {
    return ReadRegistryText(kSection, name).value_or(u"absent");
  }
  // A file that the options name.
  std::filesystem::path WriteDefaultFile() {
    std::filesystem::path file = folder.Write("default.txt", Gbk(u"默认"));
    WriteRegistryText(kSection, u"DefaultFile", file.u16string());
    return file;
  }
};

// Lines as displayed.
LRESULT DisplayLines(const App& app) {
  return Send(app.Editor().window(), EM_GETLINECOUNT);
}

TEST_F(OptionsDialogTest, ShowsTheOptionsAndWhereTheIniFileIs) {
  app.Start();
  app.Menu("mnuOptions");
  DialogDriver dialog = app.ExpectDialog(u"选项");
  EXPECT_EQ(dialog.Text(ChkNoRet), u"不自动换行");
  EXPECT_EQ(dialog.Text(ChkEngLish), u"全文为英文");
  EXPECT_EQ(dialog.ToolTip(ChkEngLish),
            u"勾选后[定位到指定行]速度快，但文中若有中文字符时定位不够准确，故有中文字符时不要勾选");
  EXPECT_TRUE(dialog.IsChecked(ChkNoRet));
  EXPECT_TRUE(dialog.IsChecked(ChkEngLish));
  EXPECT_EQ(dialog.Text(TxtDefaultFile), u"");
  EXPECT_EQ(dialog.Text(CmdDefaultFile), u"...");
  EXPECT_EQ(dialog.Text(TxtIniFile), (TestProgramFolder() / "window_tests.ini").u16string());
  dialog.Press(ChkNoRet).Press(CmdQuit);
  dialog.WaitUntilGone();
  EXPECT_EQ(Setting(u"LineReturn"), u"absent");
}

TEST_F(OptionsDialogTest, AppliesTheWrappingAtOnceAndKeepsIt) {
  app.Start();
  app.Editor().Insert(std::u16string(2000, u'w'));
  EXPECT_EQ(DisplayLines(app), 1);
  app.Menu("mnuOptions");
  DialogDriver dialog = app.ExpectDialog(u"选项");
  dialog.Press(ChkNoRet).Press(ChkEngLish).Press(CmdOK);
  dialog.WaitUntilGone();
  app.Settle();
  EXPECT_GT(DisplayLines(app), 1);
  EXPECT_EQ(Setting(u"LineReturn"), u"0");
  EXPECT_EQ(Setting(u"AllEnglish"), u"0");

  app.Menu("mnuOptions");
  DialogDriver again = app.ExpectDialog(u"选项");
  EXPECT_FALSE(again.IsChecked(ChkNoRet));
  EXPECT_FALSE(again.IsChecked(ChkEngLish));
  again.Press(ChkNoRet).Press(CmdOK);
  again.WaitUntilGone();
  app.Settle();
  EXPECT_EQ(DisplayLines(app), 1);
  EXPECT_EQ(Setting(u"LineReturn"), u"1");
}

TEST_F(OptionsDialogTest, AsksForTheDefaultFile) {
  const std::filesystem::path file = folder.Write("a.txt", "");
  app.Start();
  app.Menu("mnuOptions");
  DialogDriver dialog = app.ExpectDialog(u"选项");
  dialog.Press(CmdDefaultFile);
  app.ChooseFile(file);
  EXPECT_EQ(dialog.Text(TxtDefaultFile), file.u16string());
  dialog.Press(CmdOK);
  dialog.WaitUntilGone();
  app.Settle();
  EXPECT_EQ(Setting(u"DefaultFile"), file.u16string());
}

TEST_F(OptionsDialogTest, TheDefaultFileIsOpenedWhenNoDocumentIsNamed) {
  const std::filesystem::path file = WriteDefaultFile();
  app.Start();
  app.ExpectText(u"默认");
  app.ExpectCaption(u"Scrivanta " + file.u16string());
}

}  // namespace
}  // namespace scrivanta
