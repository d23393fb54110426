#include <gtest/gtest.h>

#include "support/TemporaryFolder.h"
#include "text/SameFile.h"

namespace scrivanta {
namespace {

namespace fs = std::filesystem;

TEST(SameFile, IsToldByTheFileSystem) {
  const testing::TemporaryFolder folder;
  const fs::path file = folder.Put("a.txt", "");
  folder.Put("b.txt", "");
  fs::create_directory(folder.path() / "sub");
  fs::create_symlink("../a.txt", folder.path() / "sub" / "link");
  fs::create_directory_symlink(folder.path(), folder.path() / "sub" / "up");
  struct Case {
    fs::path one;
    fs::path other;
    bool same;
  };
  const Case cases[] = {
      {file, fs::relative(file), true},
      {file, folder.path() / "sub" / ".." / "a.txt", true},
      {file, folder.path() / "sub" / "link", true},
      {file, folder.path() / "b.txt", false},
      {file, folder.path() / "missing", false},
      {folder.path() / "missing", folder.path() / "." / "missing", true},
      {folder.path() / "missing", folder.path() / "sub" / "up" / "missing", true},
      {folder.path() / "missing", folder.path() / "sub" / "missing", false},
      {folder.path() / "missing", folder.path() / "b.txt", false},
      {folder.path() / "no folder" / "x", folder.path() / "no folder" / "y", false},
      {"/", "/missing", false},
      {"", file, false},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(IsSameFile(c.one, c.other), c.same) << c.one << c.other;
    EXPECT_EQ(IsSameFile(c.other, c.one), c.same) << c.one << c.other;
  }
}

}  // namespace
}  // namespace scrivanta
