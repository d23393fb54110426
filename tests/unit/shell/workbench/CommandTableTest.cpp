#include <gtest/gtest.h>

#include "shell/workbench/CommandTable.h"
#include "support/ScriptedWorkbench.h"
#include "text/ExplainedError.h"

namespace scrivanta::testing {
namespace {

TEST(CommandTable, TurnsAFailureIntoOneMessage) {
  const std::error_code missing = std::make_error_code(std::errc::no_such_file_or_directory);
  struct Case {
    std::function<void(Workbench&)> handler;
    std::vector<std::u16string> messages;
  };
  const Case cases[] = {
      {[](Workbench&) {}, {}},
      {[](Workbench&) { throw Interrupted(); }, {}},
      {[=](Workbench&) { throw FileError("文.txt", missing); }, {u"文件读写失败：\n文.txt\n文件不存在"}},
      {[](Workbench&) { throw ExplainedError("wrong key", u"密钥不对。"); }, {u"密钥不对。"}},
      {[](Workbench&) { throw std::bad_alloc(); }, {u"内存不足！"}},
      {[](Workbench&) { throw std::runtime_error("reason"); }, {u"出错了！\nreason"}},
  };
  for (const Case& c : cases) {
    ScriptedWorkbench workbench;
    CommandTable table;
    table.Add("mnuTest", {c.handler});
    EXPECT_TRUE(table.Run("mnuTest", workbench));
    std::vector<std::u16string> shown;
    for (const Message& message : workbench.prompts().messages) {
      EXPECT_EQ(message.icon, Icon::kCritical);
      EXPECT_TRUE(message.systemModal);
      shown.push_back(message.text);
    }
    EXPECT_EQ(shown, c.messages);
  }
}

TEST(CommandTable, KnowsWhatCanBeUsed) {
  CommandTable table;
  table.Add("mnuAlways", {[](Workbench&) {}});
  table.Add("mnuWithSelection", {[](Workbench&) {}, [](const WorkbenchState& state) { return state.hasSelection; }});
  EXPECT_TRUE(table.IsAvailable("mnuAlways", {}));
  EXPECT_FALSE(table.IsAvailable("mnuWithSelection", {}));
  EXPECT_TRUE(table.IsAvailable("mnuWithSelection", {.hasSelection = true}));
  EXPECT_FALSE(table.IsAvailable("mnuNone", {}));
  EXPECT_THROW(table.Add("mnuAlways", {[](Workbench&) {}}), std::logic_error);
  ScriptedWorkbench workbench;
  EXPECT_FALSE(table.Run("mnuNone", workbench));
}

}  // namespace
}  // namespace scrivanta::testing
