#include <gtest/gtest.h>

#include "shell/services/FormState.h"
#include "support/ScriptedWorkbench.h"

namespace scrivanta {
namespace {

class MemoryForm final : public Form {
 public:
  std::u16string Name() const override { return u"FrmAny"; }
  std::vector<FormControl> Controls() const override { return controls; }
  void SetControl(const FormControl& control) override {
    for (FormControl& own : controls) {
      if (own.name == control.name && own.index == control.index) {
        own = control;
      }
    }
  }
  FormPlacement Placement() const override { return placement; }
  void SetPlacement(const FormPlacement& newPlacement) override { placement = newPlacement; }

  std::vector<FormControl> controls = {
      {u"TextBox", u"Txt1", {}, u"initial", false, {}},         {u"RichTextBox", u"Rich1", {}, u"", false, {}},
      {u"OptionButton", u"Opt1", 0, u"caption", true, {}},      {u"OptionButton", u"Opt1", 1, u"caption", false, {}},
      {u"CheckBox", u"Chk1", {}, u"caption", true, {}},         {u"ComboBox", u"Combo1", {}, u"", false, {u"built in"}},
      {u"ListBox", u"List1", {}, u"", false, {u"one", u"two"}}, {u"Label", u"Label1", {}, u"label", false, {}},
      {u"CommandButton", u"Cmd1", {}, u"button", false, {}},
  };
  FormPlacement placement{10, 20, 300, 400, false};
};

TEST(FormState, GivesEveryControlBackWhatItHeld) {
  testing::MapSettings settings;
  MemoryForm saved;
  saved.controls[0].text = u"";
  saved.controls[1].text = u"two\r\nlines";
  saved.controls[2].checked = false;
  saved.controls[3].checked = true;
  saved.controls[4].checked = false;
  saved.controls[5].text = u"c";
  saved.controls[5].items = {u"a", u"中", u"c"};
  saved.controls[6].text = u"two";
  saved.placement = {-15, 30, 5000, 4000, true};
  SaveForm(saved, settings, Store::kIniFile);

  MemoryForm restored;
  RestoreForm(restored, settings, Store::kIniFile);
  for (std::size_t i = 0; i < saved.controls.size(); ++i) {
    EXPECT_EQ(restored.controls[i].text, saved.controls[i].text) << i;
    EXPECT_EQ(restored.controls[i].checked, saved.controls[i].checked) << i;
    EXPECT_EQ(restored.controls[i].items, saved.controls[i].items) << i;
  }
  EXPECT_EQ(restored.placement.left, -15);
  EXPECT_EQ(restored.placement.height, 4000);
  EXPECT_TRUE(restored.placement.maximized);
}

TEST(FormState, UsesTheKeysThatOthersRead) {
  testing::MapSettings kept;
  Settings& settings = kept;
  MemoryForm form;
  form.controls[5].items = {u"a", u"b"};
  SaveForm(form, settings);
  EXPECT_EQ(settings.Get(u"FrmAny.Opt1(0)"), u"True");
  EXPECT_EQ(settings.Get(u"FrmAny.Opt1(1)"), u"False");
  EXPECT_EQ(settings.Get(u"FrmAny.Chk1"), u"1");
  EXPECT_EQ(settings.Get(u"FrmAny.Combo1.CombAllList$"), u"a\r\nb");
  EXPECT_EQ(settings.Get(u"FrmAny.Left"), u"10");
  EXPECT_EQ(settings.Get(u"FrmAny.State"), u"Window");
  EXPECT_FALSE(settings.Find(u"FrmAny.Label1"));
  EXPECT_FALSE(settings.Find(u"FrmAny.Cmd1"));
}

TEST(FormState, LeavesAloneWhatWasNeverSaved) {
  testing::MapSettings settings;
  settings.Save(u"FrmAny.Label1", u"a kept caption", Store::kRegistry, kFormSection);
  MemoryForm form;
  RestoreForm(form, settings);
  EXPECT_EQ(form.controls[0].text, u"initial");
  EXPECT_TRUE(form.controls[4].checked);
  EXPECT_EQ(form.controls[5].items, std::vector<std::u16string>{u"built in"});
  EXPECT_EQ(form.controls[7].text, u"a kept caption");
  EXPECT_EQ(form.placement.width, 300);
}

}  // namespace
}  // namespace scrivanta
