#include <gtest/gtest.h>

#include "shell/window/ChosenRegExpEngine.h"
#include "shell/window/Options.h"
#include "shell/window/View.h"
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
  void SetZoom(int percent) override { zoom = percent; }
  void SetLineNumbers(bool shown) override { numbers = shown; }
  void SetColours(ColourChoice chosen) override { colours = chosen; }
  void SetKeys(const KeyMap& chosen) override { keys = chosen; }
  void OpenEncodingMenu() override {}
  void OpenLineEndsMenu() override {}
  void Undo() override {}
  void Redo() override {}

  std::optional<bool> wraps;
  std::optional<ColourChoice> colours;
  KeyMap keys;
  int zoom = 0;
  bool numbers = false;
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

  dialog.answer = Options{.wraps = true,
                          .allEnglish = false,
                          .usesRegExpObject = true,
                          .defaultFile = "folder/a.txt",
                          .colours = ColourChoice::kDark};
  table.Run("mnuOptions", workbench);
  EXPECT_EQ(window.wraps, true);
  EXPECT_EQ(window.colours, ColourChoice::kDark);
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

TEST(View, IsChangedByCommandsAndKept) {
  testing::ScriptedWorkbench workbench;
  const Settings& settings = workbench.settings();
  WrappingWindow window;
  CommandTable table;
  RegisterViewCommands(table, window);
  EXPECT_EQ(ReadZoom(settings), 100);
  table.Run("mnuZoomIn", workbench);
  table.Run("mnuZoomIn", workbench);
  EXPECT_EQ(window.zoom, 125);
  EXPECT_EQ(ReadZoom(settings), 125);
  EXPECT_EQ(workbench.status, u"显示比例 125%");
  table.Run("mnuZoomReset", workbench);
  table.Run("mnuZoomOut", workbench);
  EXPECT_EQ(window.zoom, 90);

  KeyMap keys;
  keys.Assign("mnuPrint", std::nullopt);
  keys.Save(workbench.settings());
  table.Run("mnuWordWrap", workbench);
  EXPECT_EQ(window.wraps, true);
  EXPECT_TRUE(ReadOptions(settings).wraps);
  EXPECT_EQ(KeyMap(settings), keys) << "the keys of the user are none of its business";
  table.Run("mnuWordWrap", workbench);
  EXPECT_EQ(window.wraps, false);

  table.Run("mnuLineNumbers", workbench);
  EXPECT_TRUE(window.numbers);
  EXPECT_TRUE(ReadLineNumbers(settings));
}

TEST(View, ZoomStaysWithinItsSteps) {
  EXPECT_EQ(NextZoom(400, true), 400);
  EXPECT_EQ(NextZoom(50, false), 50);
  EXPECT_EQ(NextZoom(103, true), 110);
  EXPECT_EQ(NextZoom(103, false), 100);
  testing::ScriptedWorkbench workbench;
  for (const auto& [text, zoom] : {std::pair(u"9999", 400), {u"-5", 50}, {u"x", 50}, {u"120", 120}}) {
    workbench.settings().Save(u"Zoom", text, Store::kRegistry, kWindowSection);
    EXPECT_EQ(ReadZoom(workbench.settings()), zoom);
  }
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

TEST(Options, HaveColoursThatFollowTheSystemUntilTheyAreChosen) {
  testing::ScriptedWorkbench workbench;
  Settings& settings = workbench.settings();
  EXPECT_EQ(ReadOptions(settings).colours, ColourChoice::kLikeSystem);
  for (const ColourChoice choice : {ColourChoice::kDark, ColourChoice::kLight, ColourChoice::kLikeSystem}) {
    SaveOptions({.defaultFile = {}, .colours = choice}, settings);
    EXPECT_EQ(ReadOptions(settings).colours, choice);
    for (const bool system : {false, true}) {
      const bool isDark = choice == ColourChoice::kDark || (choice == ColourChoice::kLikeSystem && system);
      EXPECT_EQ(IsDark(choice, {.isDark = system}), isDark);
      EXPECT_FALSE(IsDark(choice, {.isDark = system, .isHighContrast = true}));
    }
  }
}

}  // namespace
}  // namespace scrivanta
