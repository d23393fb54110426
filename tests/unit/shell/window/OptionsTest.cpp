#include <gtest/gtest.h>

#include "shell/window/ChosenRegExpEngine.h"
#include "shell/window/Options.h"
#include "support/ScriptedWorkbench.h"

namespace scrivanta {
namespace {

class ScriptedDialog final : public OptionsDialog {
 public:
  std::optional<Options> Ask(Workbench&, const Options& options) override {
    shown = options;
    return answer;
  }

  Options shown;
  std::optional<Options> answer;
};

class WrappingWindow final : public MainWindow {
 public:
  EditBox& editBox() override { throw std::logic_error("not asked for"); }
  DocumentFile& documentFile() override { throw std::logic_error("not asked for"); }
  void KeepPlacement() override {}
  void RequestClose() override {}
  void SetWordWrap(bool wrap) override { wraps = wrap; }
  void SetKeys(const KeyMap& chosen) override { keys = chosen; }
  void OpenEncodingMenu() override {}
  void OpenLineEndsMenu() override {}
  void Undo() override {}
  void Redo() override {}

  std::optional<bool> wraps;
  KeyMap keys;
};

TEST(Options, AreKeptAndAppliedOnlyWhenTheUserSaysSo) {
  testing::ScriptedWorkbench workbench;
  WrappingWindow window;
  ScriptedDialog dialog;
  CommandTable table;
  RegisterOptionsCommand(table, window, dialog);
  table.Run("mnuOptions", workbench);
  EXPECT_EQ(dialog.shown, Options());
  EXPECT_FALSE(window.wraps);
  EXPECT_TRUE(workbench.settings().values.empty());

  dialog.answer = Options{.wraps = true, .allEnglish = false, .usesRegExpObject = true, .defaultFile = "folder/a.txt"};
  table.Run("mnuOptions", workbench);
  EXPECT_EQ(window.wraps, true);
  const Settings& settings = workbench.settings();
  EXPECT_EQ(settings.Get(u"LineReturn", Store::kRegistry, u"Settings"), u"0");
  EXPECT_EQ(settings.Get(u"AllEnglish", Store::kRegistry, u"Settings"), u"0");

  const Options before = *dialog.answer;
  dialog.answer = Options{.wraps = false, .allEnglish = false, .defaultFile = {}};
  table.Run("mnuOptions", workbench);
  EXPECT_EQ(dialog.shown, before);
  EXPECT_EQ(window.wraps, false);
  EXPECT_EQ(settings.Get(u"LineReturn", Store::kRegistry, u"Settings"), u"1");
}

TEST(Options, ChooseWhatSearchesPatterns) {
  class ObjectEngine final : public RegExpEngine {
   public:
    std::unique_ptr<RegExp> Compile(std::u16string_view, RegExpOptions) const override { return nullptr; }
  };
  testing::ScriptedWorkbench workbench;
  const ObjectEngine object;
  const ChosenRegExpEngine engine(workbench.settings(), object);
  EXPECT_NE(engine.Compile(u"a", {}), nullptr);
  SaveOptions({.usesRegExpObject = true, .defaultFile = {}}, workbench.settings());
  EXPECT_EQ(engine.Compile(u"a", {}), nullptr);
}

}  // namespace
}  // namespace scrivanta
