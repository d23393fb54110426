#include <gtest/gtest.h>
#include <unistd.h>

#include "search/FileSearch.h"
#include "search/FileText.h"
#include "support/ScriptedWorkbench.h"

namespace scrivanta {
namespace {

TEST(FileSearch, ReportsWhatItCannotSearchAndPassesBinariesOver) {
  testing::TemporaryFolder folder;
  // Of both only the beginnings take room on the disk; what follows is NULs.
  std::filesystem::resize_file(folder.Put("film.txt", "find"), kLargestFileText + 1);
  const auto huge = folder.Put("huge.txt", std::string(70'000, 'x'));
  std::filesystem::resize_file(huge, kLargestFileText + 1);
  const auto large = folder.Put("large.txt", std::string(70'000, 'x') + "\nfind");
  std::filesystem::create_symlink(folder.path() / "gone.txt", folder.path() / "broken.txt");
  const auto longLine =
      folder.Put("line.txt", "first\r\rthird\r\n" + std::string(500, 'a') + "find" + std::string(500, 'b'));
  NoProgress progress;
  const FindState state{.findText = u"find"};
  const FileSearchResult result = SearchFiles({folder.path(), folder.path() / "missing"}, FileFilter(u"*.TXT ; *.rtf"),
                                              state, BuiltInRegExpEngine(), progress);
  EXPECT_EQ(result.binaryFiles, 1U);
  ASSERT_EQ(result.have.size(), 2U);
  EXPECT_EQ(result.have[0].path, large);
  EXPECT_EQ(result.have[1].line, u"…" + std::u16string(100, u'a') + u"find" + std::u16string(96, u'b'));
  EXPECT_EQ(result.have[1].lineNumber, 4U) << "every kind of line end counts";
  ASSERT_EQ(result.failures.size(), 2U);
  EXPECT_EQ(result.failures[0].path, huge);
  EXPECT_EQ(result.failures[0].reason, u"文件超过256MB，太大");
  EXPECT_EQ(result.failures[1].path, folder.path() / "missing");
  EXPECT_EQ(result.failures[1].reason, u"文件不存在");
}

// The superuser may read everything; while one of these lives the process is nobody.
class CommonUser {
 public:
  CommonUser() { IsIn(seteuid(kNobody)); }
  CommonUser(const CommonUser&) = delete;
  CommonUser& operator=(const CommonUser&) = delete;
  ~CommonUser() { IsIn(seteuid(before_)); }

 private:
  static constexpr uid_t kNobody = 65534;

  // Others than the superuser stay who they are.
  void IsIn(int result) const { EXPECT_TRUE(result == 0 || before_ != 0); }

  uid_t before_ = geteuid();
};

TEST(FileSearch, NamesTheFolderAndTheFileThatMayNotBeRead) {
  using std::filesystem::perms;
  testing::TemporaryFolder folder;
  std::filesystem::permissions(folder.path(), perms::all);
  std::filesystem::create_directory(folder.path() / "closed");
  folder.Put("closed/1.txt", "find");
  std::filesystem::permissions(folder.path() / "closed", perms::none);
  const auto closed = folder.Put("closed.txt", "find");
  std::filesystem::permissions(closed, perms::none);
  const auto open = folder.Put("open.txt", "find");
  std::filesystem::permissions(open, perms::all);
  NoProgress progress;
  FileSearchResult result;
  {
    const CommonUser user;
    result = SearchFiles({folder.path()}, FileFilter(u"*.txt"), {.findText = u"find"}, BuiltInRegExpEngine(), progress);
  }
  std::filesystem::permissions(folder.path() / "closed", perms::all);  // or it could not be removed
  ASSERT_EQ(result.have.size(), 1U);
  EXPECT_EQ(result.have[0].path, open);
  ASSERT_EQ(result.failures.size(), 2U);
  for (const FileFailure& failure : result.failures) {
    EXPECT_EQ(failure.path.stem(), "closed");
    EXPECT_EQ(failure.reason, u"没有权限，或文件正被其他程序使用");
  }
}

}  // namespace
}  // namespace scrivanta
