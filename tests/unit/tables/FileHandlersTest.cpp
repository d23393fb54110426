#include <gtest/gtest.h>

#include "support/ScriptedWorkbench.h"
#include "support/TemporaryFolder.h"
#include "tables/FileHandlers.h"
#include "text/PlatformFile.h"

namespace scrivanta::testing {
namespace {

TEST(DownloadListHandler, PutsTheAddressesIntoTheDocument) {
  TemporaryFolder folder;
  const auto file = folder.Put("2.cfg", std::string("\1\0", 2) + "thunder://QUFodHRwOi8vYS5jbi8xWlo=\1");
  folder.Put("10.cfg", "http://b.cn/ http://a.cn/1");
  std::filesystem::create_directories(folder.path() / "下");
  const auto none = folder.Put("下/x", "x");
  struct Case {
    Answer what;
    std::filesystem::path place;
    std::u16string text;
    std::size_t messages;
  };
  const Case cases[] = {
      {Answer::kYes, folder.path(), u"前http://a.cn/1\r\nhttp://b.cn/\r\n", 1},
      {Answer::kNo, file, u"前http://a.cn/1\r\n", 1},
      {Answer::kNo, none, u"前后", 2},
      {Answer::kNo, folder.path() / "missing", u"前后", 2},
      {Answer::kNo, {}, u"前后", 1},
  };
  for (const Case& c : cases) {
    ScriptedWorkbench workbench;
    workbench.editor().Open(u"前后", {{1}, 1});
    workbench.prompts().Will(c.what);
    workbench.prompts().Will(c.place);
    mnuXunLeiXiaZaiList(workbench);
    EXPECT_EQ(workbench.editor().Text(), c.text) << c.place;
    EXPECT_EQ(workbench.editor().changes, c.text == u"前后" ? 0 : 1);
    EXPECT_EQ(workbench.prompts().messages.size(), c.messages) << c.place;
  }
  ScriptedWorkbench workbench;
  workbench.prompts().Will(Answer::kCancel);
  mnuXunLeiXiaZaiList(workbench);
  EXPECT_TRUE(workbench.settings().values.empty());
}

}  // namespace
}  // namespace scrivanta::testing
