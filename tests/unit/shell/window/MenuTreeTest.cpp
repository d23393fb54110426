#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "shell/window/MenuTree.h"

namespace scrivanta {
namespace {

TEST(MenuTreeTest, BarHasItsSixMenusInOrder) {
  std::vector<std::u16string> bar;
  for (const MenuEntry& entry : MenuTree()) {
    if (entry.level == MenuLevel::kBar) {
      bar.emplace_back(entry.caption);
    }
  }
  const std::vector<std::u16string> expected = {u"&F 文件",     u"&E 编辑", u"&O 格式",
                                                u"&T 文件处理", u"&L 工具", u"&H 帮助"};
  EXPECT_EQ(bar, expected);
}

TEST(MenuTreeTest, NamesShortcutsAndIdentifiersAreUnique) {
  std::set<std::string_view> names;
  std::set<std::u16string_view> shortcuts;
  for (const MenuEntry& entry : MenuTree()) {
    EXPECT_TRUE(names.insert(entry.controlName).second) << entry.controlName;
    EXPECT_TRUE(entry.shortcut.empty() || shortcuts.insert(entry.shortcut).second) << entry.controlName;
    EXPECT_EQ(MenuEntryOf(*MenuCommandId(entry.controlName)), &entry);
  }
}

// A separator at either end of a menu, or beside another, would be a slip of the table.
TEST(MenuTreeTest, SeparatorsStandBetweenEntries) {
  const auto menu = MenuTree();
  for (std::size_t i = 0; i < menu.size(); ++i) {
    if (menu[i].IsSeparator()) {
      ASSERT_TRUE(i > 0 && i + 1 < menu.size());
      EXPECT_TRUE(menu[i - 1].level == MenuLevel::kEntry && !menu[i - 1].IsSeparator()) << menu[i].controlName;
      EXPECT_TRUE(menu[i + 1].level == MenuLevel::kEntry && !menu[i + 1].IsSeparator()) << menu[i].controlName;
    }
  }
}

TEST(MenuTreeTest, UnknownNamesAndIdentifiersAreNoEntries) {
  EXPECT_FALSE(MenuCommandId("mnuNoSuchEntry"));
  EXPECT_EQ(MenuEntryOf(0), nullptr);
  EXPECT_EQ(MenuEntryOf(kFirstMenuCommandId + static_cast<int>(MenuTree().size())), nullptr);
}

}  // namespace
}  // namespace scrivanta
