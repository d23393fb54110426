#include <gtest/gtest.h>

#include "shell/window/CommandReasons.h"
#include "shell/window/EditBoxMenu.h"
#include "shell/window/RecentCommands.h"
#include "shell/window/RecentMenu.h"
#include "support/ScriptedWorkbench.h"
#include "support/StringView.h"

namespace scrivanta {
namespace {

using testing::ScriptedWorkbench;

class RecentTest : public ::testing::Test {
 protected:
  std::vector<std::u16string> Names() const {
    std::vector<std::u16string> names;
    for (const auto& [path, isPinned] : recent.List()) {
      names.push_back((isPinned ? u"*" : u"") + path.filename().u16string());
    }
    return names;
  }
  std::vector<std::u16string> Captions() {
    std::vector<std::u16string> captions;
    for (const MenuChoice& choice : RecentChoices(recent, document, workbench.prompts())) {
      captions.push_back(choice.caption);
    }
    return captions;
  }

  testing::TemporaryFolder folder;
  ScriptedWorkbench workbench;
  testing::StringView view{workbench.editor()};
  DocumentFile document{workbench, view};
  RecentDocuments recent{workbench.settings()};
};

TEST_F(RecentTest, TenAreKeptAndPinnedOnesStay) {
  EXPECT_TRUE(recent.List().empty());
  for (const char* const name : {"/d/a", "/d/b", "/d/c", "/d/a"}) {
    recent.Note(name);
  }
  EXPECT_EQ(Names(), (std::vector<std::u16string>{u"a", u"c", u"b"}));
  recent.Pin("/d/b", true);
  recent.Pin("/d/nothing", true);
  for (char name = '0'; name <= '8'; ++name) {
    recent.Note(std::string("/d/") + name);
  }
  EXPECT_EQ(Names(), (std::vector<std::u16string>{u"8", u"7", u"6", u"5", u"4", u"3", u"2", u"1", u"0", u"*b"}));
  recent.Note("/d/b");
  recent.Note("/d/new");
  EXPECT_EQ(Names(), (std::vector<std::u16string>{u"new", u"*b", u"8", u"7", u"6", u"5", u"4", u"3", u"2", u"1"}));
  recent.Remove("/d/8");
  EXPECT_EQ(Names().size(), 9U);
  EXPECT_EQ(RecentDocuments(workbench.settings()).List(), recent.List());
}

TEST_F(RecentTest, MenuMarksPinnedAndMissingOnes) {
  EXPECT_TRUE(Captions().empty());
  const auto here = folder.Put("a&b.txt", "x");
  recent.Note(here);
  recent.Note("/nowhere/gone.txt");
  recent.Pin(here, true);
  const auto text = [](const std::filesystem::path& path) {
    std::u16string shown = path.u16string();
    return shown.insert(shown.find(u'&'), 1, u'&');
  };
  EXPECT_EQ(Captions(), (std::vector<std::u16string>{u"-", u"&1 /nowhere/gone.txt（文件不在了）",
                                                     u"&2 " + text(here) + u"（已固定）", u"&K 固定这个文档"}));
  const auto choices = RecentChoices(recent, document, workbench.prompts());
  EXPECT_FALSE(choices.back().isAvailable) << "the document is none of the list";
  choices[2].run();
  EXPECT_EQ(document.Path(), here);
  RecentChoices(recent, document, workbench.prompts()).back().run();
  EXPECT_EQ(Names().back(), u"a&b.txt") << "not pinned any more";

  workbench.prompts().Will(Answer::kYes);
  choices[1].run();
  EXPECT_EQ(Names(), (std::vector<std::u16string>{u"a&b.txt"}));
  EXPECT_EQ(document.Path(), here);
}

TEST_F(RecentTest, LongPathsAreShortened) {
  recent.Note("/" + std::string(100, 'x') + "/end.txt");
  const std::u16string caption = Captions()[1];
  EXPECT_TRUE(caption.starts_with(u"&1 /" + std::u16string(29, u'x') + u"……")) << caption.size();
  EXPECT_TRUE(caption.ends_with(u"/end.txt（文件不在了）"));
}

TEST_F(RecentTest, TheLastCommandsOnLinesComeIntoTheMenuOfTheBox) {
  RecentCommands commands(workbench.settings());
  for (const char* const name : {"mnuSort", "mnuSave", "mnuTrimLine", "mnuSort", "mnuRegGet", "mnuReplace", "mnuFenLan",
                                 "mnuAddTAB", "mnuRandOrder"}) {
    commands.Note(name);
  }
  EXPECT_EQ(commands.List(),
            (std::vector<std::string>{"mnuRandOrder", "mnuAddTAB", "mnuFenLan", "mnuRegGet", "mnuSort"}));
  std::string ran;
  bool hasSelection = false;
  const EditBoxMenu menu{[&](std::string_view name) { return name != "mnuCopy" || hasSelection; },
                         [](std::string_view) { return u"F9"; }, [&](std::string_view name) { ran = name; }};
  auto choices = menu.Choices({"mnuSort"});
  choices.back().run();
  EXPECT_EQ(ran, "mnuSort");
  EXPECT_EQ(choices.back().caption, u"&S 排序");
  EXPECT_EQ(choices[7].caption, u"&F 查找...");
  hasSelection = true;
  EXPECT_EQ(menu.Choices({})[7].caption, u"&F 查找所选文字...");
}

TEST(CommandReasons, GreyCommandsSayWhatTheyLack) {
  CommandTable table;
  table.Add("mnuCut", {[](Workbench&) {}, [](const WorkbenchState& state) { return state.hasSelection; }});
  table.Add("mnuPaste", {[](Workbench&) {}, [](const WorkbenchState& state) { return state.canPaste; }});
  table.Add("mnuFind", {[](Workbench&) {}});
  EXPECT_EQ(WhyUnavailable(table, "mnuCut", {}), u"要先选中文字");
  EXPECT_EQ(WhyUnavailable(table, "mnuPaste", {.hasSelection = true}), u"剪贴板上没有可以粘贴的内容");
  EXPECT_EQ(WhyUnavailable(table, "mnuCut", {.hasSelection = true}), u"");
  EXPECT_EQ(WhyUnavailable(table, "mnuCut", {.hasSelection = true, .isReadOnly = true}),
            u"文档是以只读方式打开的，另存为其他文件以后才能改动");
  EXPECT_EQ(WhyUnavailable(table, "mnuFind", {.isReadOnly = true}), u"");
  EXPECT_EQ(WhyUnavailable(table, "mnuSort", {}), u"这个版本还没有这个功能");
}

}  // namespace
}  // namespace scrivanta
