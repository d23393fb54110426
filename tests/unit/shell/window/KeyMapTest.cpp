#include <algorithm>
#include <set>

#include <gtest/gtest.h>

#include "shell/window/KeysDialog.h"
#include "shell/window/MenuTree.h"
#include "support/ScriptedWorkbench.h"

namespace scrivanta {
namespace {

KeyStroke Key(std::u16string_view text) {
  return ParseKeyStroke(text).value();
}

TEST(KeyStroke, TextsComeBack) {
  for (const std::u16string_view text : {u"Ctrl+Shift+S", u"F3", u"Shift+F12", u"Ctrl+1", u"Shift+Delete", u"Insert"}) {
    EXPECT_EQ(KeyStrokeText(Key(text)), text);
  }
  EXPECT_EQ(Key(u"Ctrl+F1"), (KeyStroke{.ctrl = true, .code = 0x70}));
  for (const std::u16string_view text : {u"", u"Ctrl+", u"F13", u"F0", u"ctrl+s", u"Ctrl+;", u"S+Ctrl", u"Space"}) {
    EXPECT_FALSE(ParseKeyStroke(text));
  }
}

TEST(KeyStroke, WhatTypesAndWhatOthersNeedIsNoCommands) {
  for (const std::u16string_view text : {u"S", u"Shift+1", u"Ctrl+Shift+F", u"Ctrl+Shift+0", u"Ctrl+Shift+C", u"Delete",
                                         u"F10", u"Shift+F10", u"Ctrl+Delete"}) {
    EXPECT_FALSE(WhyNoCommandMayHave(Key(text)).empty()) << ::testing::PrintToString(text);
  }
  EXPECT_FALSE(WhyNoCommandMayHave({.ctrl = true, .code = 0x20}).empty()) << "the blank switches the input method";
  for (const std::u16string_view text : {u"Ctrl+Q", u"Ctrl+9", u"F7", u"Ctrl+Shift+D", u"Shift+Insert"}) {
    EXPECT_EQ(WhyNoCommandMayHave(Key(text)), u"");
  }
}

// What the program gives must be what it would take from the user.
TEST(KeyMap, KeysOfTheProgramAreUniqueAndAllowed) {
  std::set<KeyStroke> keys;
  for (const MenuEntry& entry : MenuTree()) {
    for (const KeyStroke& key : KeyMap().KeysOf(entry.controlName)) {
      EXPECT_TRUE(keys.insert(key).second) << entry.controlName;
      EXPECT_EQ(WhyNoCommandMayHave(key), u"") << entry.controlName;
    }
  }
  EXPECT_EQ(KeyMap().AllKeys("mnuCut"), u"Ctrl+X、Shift+Delete");
  EXPECT_EQ(KeyMap().ShownKey("mnuCut"), u"Ctrl+X");
  EXPECT_EQ(KeyMap().ShownKey("mnuReplace"), u"Ctrl+H");
}

TEST(KeyMap, AKeyBelongsToOneCommandAtATime) {
  KeyMap keys;
  EXPECT_EQ(keys.Assign("mnuTrimLine", Key(u"Ctrl+B")), u"Ctrl+B 已经是“粗体”的快捷键");
  EXPECT_EQ(keys.Assign("mnuTrimLine", Key(u"Shift+Delete")), u"Shift+Delete 已经是“剪切”的快捷键");
  EXPECT_EQ(keys.Assign("mnuTrimLine", Key(u"T")), u"T 要和 Ctrl 一起按，否则打不出这个字");
  EXPECT_EQ(keys, KeyMap());

  EXPECT_EQ(keys.Assign("mnuBold", std::nullopt), u"");
  EXPECT_EQ(keys.Assign("mnuTrimLine", Key(u"Ctrl+B")), u"");
  EXPECT_EQ(keys.Assign("mnuTrimLine", Key(u"Ctrl+B")), u"") << "again";
  EXPECT_EQ(keys.AllKeys("mnuTrimLine"), u"Ctrl+B");
  EXPECT_EQ(keys.AllKeys("mnuBold"), u"");
  EXPECT_EQ(keys.Restore("mnuBold"), u"Ctrl+B 已经是“删除行首尾空格”的快捷键");
  EXPECT_EQ(keys.Restore("mnuTrimLine"), u"");
  EXPECT_EQ(keys.Restore("mnuBold"), u"");
  EXPECT_EQ(keys, KeyMap());
}

TEST(KeyMap, IsKeptInTheSettings) {
  testing::ScriptedWorkbench workbench;
  Settings& settings = workbench.settings();
  KeyMap keys;
  keys.Save(settings);
  EXPECT_TRUE(workbench.settings().values.empty());
  // The two change places: neither is taken while the settings are read.
  keys.Assign("mnuBold", std::nullopt);
  keys.Assign("mnuItalic", Key(u"Ctrl+B"));
  keys.Assign("mnuBold", Key(u"Ctrl+I"));
  keys.Assign("mnuPrint", std::nullopt);
  keys.Save(settings);
  EXPECT_EQ(KeyMap(settings), keys);
  keys.Restore("mnuPrint");
  keys.Save(settings);
  EXPECT_EQ(KeyMap(settings).ShownKey("mnuPrint"), u"Ctrl+P");

  settings.SaveAll({{u"mnuSort", u"Ctrl+S"}, {u"mnuNothing", u"Ctrl+9"}, {u"mnuFenLan", u"x"}}, Store::kRegistry,
                   u"Keys");
  const KeyMap edited(settings);
  EXPECT_EQ(edited.ShownKey("mnuSort"), u"") << "it is that of another command";
  EXPECT_EQ(edited.ShownKey("mnuSave"), u"Ctrl+S");
  EXPECT_EQ(edited.ShownKey("mnuFenLan"), u"");
}

TEST(KeysDialog, ListsEveryCommandWithTheOnesOnLinesFirst) {
  KeysDialog dialog{KeyMap()};
  const auto rows = dialog.Rows();
  EXPECT_EQ(rows.front(), (std::vector<std::u16string>{u"文件处理", u"合并一个目录或指定多个文件的内容", u""}));
  EXPECT_EQ(rows.back(), (std::vector<std::u16string>{u"（不在菜单里）", u"查找上一个", u"Shift+F3"}));
  EXPECT_EQ(dialog.Assign(0, Key(u"Ctrl+M")), u"");
  EXPECT_EQ(dialog.Rows().front().back(), u"Ctrl+M");
  EXPECT_EQ(dialog.Clear(0), u"");
  EXPECT_EQ(dialog.keys().ShownKey("mnuMergeFile"), u"");
  const auto cut = std::ranges::find_if(rows, [](const auto& row) { return row[1] == u"剪切"; });
  ASSERT_NE(cut, rows.end());
  EXPECT_EQ(cut->front(), u"编辑");
}

}  // namespace
}  // namespace scrivanta
