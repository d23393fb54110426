// What the registry's window does.
#include <gtest/gtest.h>

#include "support/MemoryRegistry.h"
#include "support/ScriptedWorkbench.h"
#include "support/TemporaryFolder.h"
#include "system/UndoFiles.h"
#include "system/registry/RegistryDialog.h"
#include "system/registry/RegistryFile.h"
#include "text/Bytes.h"

namespace scrivanta::testing {
namespace {

const std::u16string kKey = u"HKEY_CURRENT_USER\\Software\\甲";

class Controls final : public RegistryView {
 public:
  void ShowKey(const std::u16string& newKey) override { key = newKey; }
  void ShowRows(const std::vector<RegistryListRow>& newRows) override { rows = newRows; }
  void ShowRemark(const std::u16string& text) override { remark = text; }
  void Refresh(const std::u16string&) override {}
  std::optional<RegistryValueForm> AskForValue(const RegistryValueForm& form,
                                               const std::function<void(const RegistryValueForm&)>& check) override {
    asked = form;
    if (answer) {
      check(*answer);
    }
    return answer;
  }
  bool Confirm(const std::vector<RegistryChangeRow>& newRows) override {
    confirmed = newRows;
    return agrees;
  }

  std::u16string key;
  std::vector<RegistryListRow> rows;
  std::u16string remark;
  RegistryValueForm asked;
  std::optional<RegistryValueForm> answer;
  std::vector<RegistryChangeRow> confirmed;
  bool agrees = true;
};

class RegistryDialogTest : public ::testing::Test {
 protected:
  RegistryDialogTest() {
    registry.Create(kKey);
    registry.SetValue(kKey, TextValue(u"a10", u"十"));
    registry.SetValue(kKey, TextValue(u"a2", u"二\t2"));
    registry.Create(kKey + u"\\子10");
    registry.Create(kKey + u"\\子2");
    workbench.SetRecoveryFolder(folder.path() / "Recovery");
    workbench.editor().Open(u"[hkcu\\Software\\甲]", {{0}, 17});
    dialog.Open(view);
  }
  std::filesystem::path OnlyUndoFile() const {
    return *std::filesystem::directory_iterator(UndoFolder(workbench.folders()));
  }

  MemoryRegistry registry;
  TemporaryFolder folder;
  ScriptedWorkbench workbench;
  Controls view;
  RegistryDialog dialog{workbench, registry};
};

TEST_F(RegistryDialogTest, OpensAtTheSelectedKeyAndRemembersIt) {
  EXPECT_EQ(view.key, kKey);
  ASSERT_EQ(view.rows.size(), 2U);
  EXPECT_EQ(view.rows[0].value.name, u"a2") << "in natural order";
  EXPECT_EQ(dialog.Subkeys(view, kKey), (std::vector<std::u16string>{u"子2", u"子10"}));
  dialog.GoTo(view, kKey + u"\\子2");
  dialog.Close();
  workbench.editor().Open(u"");
  RegistryDialog next(workbench, registry);
  next.Open(view);
  EXPECT_EQ(view.key, kKey + u"\\子2");
  EXPECT_THROW(dialog.GoTo(view, u"Software"), ExplainedError);
  EXPECT_THROW(dialog.GoTo(view, u"HKCU\\none"), ExplainedError);
  EXPECT_EQ(dialog.key(), kKey + u"\\子2");
  registry.closed.insert(kKey + u"\\子10");
  dialog.Choose(view, kKey + u"\\子10");
  EXPECT_EQ(view.remark, u"打不开 " + kKey + u"\\子10：没有权限");
  EXPECT_TRUE(view.rows.empty());
}

TEST_F(RegistryDialogTest, ChangeIsShownKeptAndTakenBack) {
  const auto before = registry.keys;
  view.answer = RegistryValueForm{.name = u"a2", .type = RegistryType::kDword, .data = u"5", .isNew = false};
  view.agrees = false;
  dialog.OpenRow(view, 0);
  EXPECT_EQ(view.asked.data, u"二\t2");
  EXPECT_EQ(registry.keys, before);
  EXPECT_FALSE(std::filesystem::exists(UndoFolder(workbench.folders())));

  view.agrees = true;
  dialog.OpenRow(view, 0);
  ASSERT_EQ(view.confirmed.size(), 1U);
  EXPECT_EQ(view.confirmed[0].before, u"REG_SZ  二\t2");
  EXPECT_EQ(view.confirmed[0].after, u"REG_DWORD  0x00000005 (5)");
  EXPECT_EQ(view.rows[0].value.type, RegistryType::kDword);

  workbench.prompts().Will(OnlyUndoFile());
  dialog.TakeBack(view);
  EXPECT_EQ(FindValue(registry, kKey, u"a2"), TextValue(u"a2", u"二\t2"));
  EXPECT_EQ(workbench.prompts().files.back().initialFolder, UndoFolder(workbench.folders()));

  // What was opened and closed again is no change.
  view.answer = view.asked;
  view.confirmed.clear();
  dialog.OpenRow(view, 0);
  EXPECT_TRUE(view.confirmed.empty());
  view.answer = RegistryValueForm{.name = u"A10", .type = RegistryType::kText, .data = u"", .isNew = true};
  EXPECT_THROW(dialog.NewValue(view), ExplainedError) << "it is there already";
  view.answer->name = u"新";
  view.answer->type = RegistryType::kQword;
  EXPECT_THROW(dialog.NewValue(view), ExplainedError) << "the empty text is no number";
}

TEST_F(RegistryDialogTest, KeysAreMadeAndDeletedWithTheirWayBack) {
  workbench.prompts().Will(std::u16string(u"新\\键"));
  dialog.NewKey(view);
  EXPECT_TRUE(registry.Has(kKey + u"\\新\\键"));
  dialog.GoTo(view, kKey);
  const auto before = registry.keys;
  std::filesystem::remove_all(UndoFolder(workbench.folders()));
  dialog.DeleteKey(view);
  EXPECT_FALSE(registry.Has(kKey));
  EXPECT_EQ(view.key, ParentKey(kKey));
  workbench.prompts().Will(OnlyUndoFile());
  dialog.Import(view);
  EXPECT_EQ(registry.keys, before);
  dialog.GoTo(view, u"HKCU");
  EXPECT_THROW(dialog.DeleteKey(view), ExplainedError);
}

TEST_F(RegistryDialogTest, SearchExportEditorAndTable) {
  dialog.Search(view, u"子");
  ASSERT_EQ(view.rows.size(), 2U);
  dialog.PutIntoDocument(view);
  EXPECT_EQ(workbench.editor().Text(), u"键\t名称\t类型\t数据\r\n" + kKey + u"\\子10\r\n" + kKey + u"\\子2\r\n");
  dialog.OpenRow(view, 1);
  EXPECT_EQ(view.key, kKey + u"\\子2");
  dialog.GoTo(view, kKey);
  dialog.PutIntoDocument(view);
  EXPECT_NE(workbench.editor().Text().find(kKey + u"\ta2\tREG_SZ\t二 2\r\n"), std::u16string::npos);

  workbench.prompts().Will(folder.path() / "out");
  dialog.Export(view);
  NoProgress progress;
  EXPECT_EQ(ReadRegistryFile(ReadWholeFile(folder.path() / "out.reg")), ContentOfKey(registry, kKey, progress));
  EXPECT_EQ(workbench.prompts().files.back().initialName, u"甲.reg");

  dialog.OpenInEditor();
  EXPECT_EQ(workbench.desktop().systemRuns.back().first, u"regedit.exe");
  EXPECT_EQ(FindValue(registry, u"HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Applets\\Regedit",
                      u"LastKey"),
            TextValue(u"LastKey", kKey));
}

}  // namespace
}  // namespace scrivanta::testing
