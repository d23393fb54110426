// The registry's window on a key of the test's own, type libraries, shortcuts.
#include <windows.h>

#include "system/folders/FrmFoldersControls.h"
#include "system/folders/ScrivantaShortcuts.h"
#include "system/registry/FrmRegistryControls.h"
#include "system/registry/RegistryData.h"
#include "system/registry/ScrivantaRegistryKeys.h"
#include "text/win/WideText.h"
#include "win/ComApartment.h"
#include "window/driver/Wait.h"
#include "window/driver/WindowProbe.h"
#include "window/driver/WindowTest.h"

namespace scrivanta {
namespace {

class RegistryWindowTest : public WindowTest {
 protected:
  RegistryWindowTest() { registry.Delete(key); }
  ~RegistryWindowTest() override { registry.Delete(key); }

  // The change that is shown, agreed to.
  void Agree(std::u16string_view before, std::u16string_view after) {
    DialogDriver changes = app.ExpectDialog(u"注册表将这样改变");
    EXPECT_EQ(changes.Cell(LstChanges, 0, 2), before);
    EXPECT_EQ(changes.Cell(LstChanges, 0, 3), after);
    changes.Press(IDOK);
    changes.WaitUntilGone();
    app.Settle();
  }

  const std::u16string key = u"HKEY_CURRENT_USER\\Software\\ScrivantaTest";
  ScrivantaRegistryKeys registry;
};

TEST_F(RegistryWindowTest, EveryValueComesThroughTheSystem) {
  const std::u16string below = key + u"\\中\\b";
  registry.Create(below);
  EXPECT_TRUE(registry.Has(key + u"\\中"));
  const std::vector<RegistryValue> values = {
      TextValue(u"", u"默认"),
      {.name = u"空", .type = RegistryType::kBinary, .bytes = {}},
      {.name = u"大", .type = RegistryType::kBinary, .bytes = std::string(100'000, 'x')},
      {.name = u"怪", .type = static_cast<RegistryType>(0x77), .bytes = "\x01"}};
  for (const RegistryValue& value : values) {
    registry.SetValue(below, value);
  }
  EXPECT_EQ(registry.Values(below).size(), values.size());
  for (const RegistryValue& value : values) {
    EXPECT_EQ(FindValue(registry, below, value.name), value);
  }
  EXPECT_EQ(registry.Subkeys(key), (std::vector<std::u16string>{u"中"}));
  registry.DeleteValue(below, u"没有");
  EXPECT_THROW(registry.Values(key + u"\\无"), RegistryError);
  registry.Delete(key);
  EXPECT_FALSE(registry.Has(key));
}

TEST_F(RegistryWindowTest, ChangesAValueAndTakesItBack) {
  registry.Create(key + u"\\子");
  registry.SetValue(key, TextValue(u"名", u"旧"));
  app.Start();
  app.Editor().Insert(key);
  app.Menu("mnuSelectAll");
  app.Menu("mnuRegistry");
  DialogDriver dialog = app.ExpectDialog(u"注册表");
  EXPECT_EQ(dialog.Text(TxtRegistryKey), key);
  EXPECT_EQ(dialog.Cell(LstRegistryValues, 0, 0), u"名");
  EXPECT_EQ(dialog.Cell(LstRegistryValues, 0, 2), u"旧");

  dialog.ChooseRow(LstRegistryValues, 0);
  dialog.Press(CmdEditValue);
  DialogDriver value = app.ExpectDialog(u"注册表的值");
  value.Choose(CboValueType, u"REG_DWORD").Type(TxtValueData, u"x").Press(IDOK);
  app.ExpectBox({.text = u"要写成32位的整数，如 10 或 0x0a。", .icon = Icon::kCritical, .systemModal = true})
      .Answer(Answer::kOk);
  value.Type(TxtValueData, u"0x10").Press(IDOK);
  Agree(u"REG_SZ  旧", u"REG_DWORD  0x00000010 (16)");
  EXPECT_EQ(dialog.Cell(LstRegistryValues, 0, 2), u"0x00000010 (16)");
  EXPECT_EQ(FindValue(registry, key, u"名")->type, RegistryType::kDword);
  const std::u16string remark = dialog.Text(LblRegistryRemark);
  ASSERT_TRUE(remark.starts_with(u"已改变1处；“恢复”读 ")) << Shown(remark);

  dialog.Press(CmdTakeBack);
  const std::size_t start = remark.find(u"读 ") + 2;
  const std::u16string name = remark.substr(start, remark.find(u".reg") + 4 - start);
  app.ChooseFile(name);
  Agree(u"REG_DWORD  0x00000010 (16)", u"REG_SZ  旧");
  EXPECT_EQ(FindValue(registry, key, u"名"), TextValue(u"名", u"旧"));

  // The tree shows what is there now.
  dialog.Press(CmdNewKey);
  app.AnswerInput({.prompt = u"新键的名字（可以用 \\ 一次建几层）："}, u"新");
  Agree(u"（没有）", u"（新键）");
  EXPECT_TRUE(registry.Has(key + u"\\新"));
  dialog.Type(TxtRegistryKey, key + u"\\新").Press(CmdGoToKey);
  dialog.Press(CmdDeleteKey);
  Agree(u"1个键，0个值", u"（删除）");
  EXPECT_EQ(dialog.Text(TxtRegistryKey), key);
  dialog.Type(TxtRegistryFind, u"旧").Press(CmdRegistryFind);
  EXPECT_EQ(dialog.Cell(LstRegistryValues, 0, 3), key);
  dialog.Press(CmdRegistryToDocument).Press(IDCANCEL);
  dialog.WaitUntilGone();
  app.ExpectText(u"键\t名称\t类型\t数据\r\n" + key + u"\t名\tREG_SZ\t旧\r\n");
}

TEST_F(RegistryWindowTest, TypeLibrariesOfTheSystemAreListed) {
  app.Start();
  app.Menu("mnuTypeLibraries");
  app.AnswerInput({.prompt = u"列出名称、文件或编号里有这些字的类型库（* 是全部）：", .preset = u"*"}, u"stdole2");
  EXPECT_TRUE(app.Text().starts_with(u"名称\t版本\t语言\t文件\t在不在\t位数\t编号\r\n"));
  EXPECT_NE(app.Text().find(u"{00020430-0000-0000-C000-000000000046}"), std::u16string::npos) << Shown(app.Text());
}

TEST_F(RegistryWindowTest, ReferencesOfAProjectAreComparedWithTheSystem) {
  const std::u16string guid = u"{00020430-0000-0000-C000-000000000046}";
  const std::filesystem::path project =
      folder.Write(u"工程.vbp", Gbk(u"Type=Exe\r\nReference=*\\G" + guid +
                                    u"#2.0#0#C:\\WINDOWS\\SYSTEM32\\STDOLE2.TLB#OLE 自动化\r\n" + u"Reference=*\\G" +
                                    guid + u"#9.0#0#没有.tlb#新\r\n"));
  app.Start();
  app.Menu("mnuVBreferences");
  app.ChooseFile(project);
  const std::u16string text = app.Text();
  EXPECT_NE(text.find(u"引用\tOLE 自动化\t2.0\tC:\\WINDOWS\\SYSTEM32\\STDOLE2.TLB\t在\t已登记\t"), text.npos)
      << Shown(text);
  EXPECT_NE(text.find(u"引用\t新\t9.0\t" + (folder / u"没有.tlb").u16string() + u"\t不在\t"), text.npos) << Shown(text);
  app.ExpectRemark(u"引用2个，文件不在1个，未登记1个");
}

TEST_F(RegistryWindowTest, ShortcutIsMadeFoundWrongAndLedRight) {
  const ComApartment apartment;  // of the test's own thread
  const std::filesystem::path target = folder.Write(u"目标.txt", "x");
  const std::filesystem::path link = folder / u"链接.lnk";
  app.Start();
  app.Menu("mnuFolders");
  DialogDriver dialog = app.ExpectDialog(u"特殊文件夹与快捷方式");
  EXPECT_EQ(dialog.Cell(LstSpecialFolders, 0, 0), u"桌面");
  EXPECT_TRUE(std::filesystem::path(dialog.Cell(LstSpecialFolders, 0, 1)).is_absolute());
  dialog.Press(CmdNewShortcut);
  DialogDriver form = app.ExpectDialog(u"快捷方式");
  form.Type(TxtShortcutFile, link.u16string()).Type(TxtShortcutTarget, target.u16string());
  form.Type(TxtShortcutArguments, u"/a 参数").Type(TxtShortcutHotKey, u"Ctrl+Alt+K").Type(TxtShortcutIcon, u"a.dll,2");
  form.Press(IDOK);
  form.WaitUntilGone();
  Shortcut read = ScrivantaShortcuts().Read(link);
  EXPECT_EQ(read.target, target.u16string());
  EXPECT_EQ(read.arguments, u"/a 参数");
  EXPECT_EQ(HotKeyText(read.hotKey), u"Ctrl+Alt+K");
  EXPECT_EQ(IconText(read), u"a.dll,2");

  const std::filesystem::path moved = folder / u"移走";
  std::filesystem::create_directory(moved);
  std::filesystem::rename(target, moved / u"目标.txt");
  dialog.Type(TxtShortcutPlaces, folder.path().u16string()).Press(CmdListShortcuts);
  EXPECT_EQ(dialog.Cell(LstShortcuts, 0, 3), u"目标不在");
  EXPECT_FALSE(dialog.IsEnabled(CmdChangeShortcuts));
  dialog.Type(TxtOldBeginning, folder.path().u16string()).Type(TxtNewBeginning, moved.u16string());
  dialog.Press(CmdReplaceBeginning).Press(CmdChangeShortcuts);
  app.ExpectBox(
         {.text = u"改变表中1个快捷方式？\n“恢复”可以还原。", .buttons = Buttons::kYesNo, .icon = Icon::kQuestion})
      .Answer(Answer::kYes);
  read = ScrivantaShortcuts().Read(link);
  EXPECT_EQ(read.target, (moved / u"目标.txt").u16string());
  EXPECT_EQ(read.arguments, u"/a 参数");
  EXPECT_EQ(dialog.Cell(LstShortcuts, 0, 3), u"");
  dialog.Press(IDCANCEL);
  dialog.WaitUntilGone();
}

}  // namespace
}  // namespace scrivanta
