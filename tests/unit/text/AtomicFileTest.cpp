#include <algorithm>
#include <csignal>
#include <filesystem>
#include <functional>
#include <string>
#include <system_error>
#include <vector>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

#include "support/FileSizeLimit.h"
#include "support/TemporaryFolder.h"
#include "text/AtomicFile.h"
#include "text/PlatformFile.h"

namespace {
std::function<void()> onFlush;  // what a test looks at while a file is being flushed to the disk
}

// In place of the C library's.
extern "C" int fsync(int file) {
  if (onFlush) {
    onFlush();
  }
  return static_cast<int>(syscall(SYS_fsync, file));
}

namespace scrivanta {
namespace {

namespace fs = std::filesystem;
using testing::FileSizeLimit;
using testing::TemporaryFolder;

std::ptrdiff_t FilesIn(const fs::path& folder) {
  return std::distance(fs::directory_iterator(folder), fs::directory_iterator());
}

std::error_code CodeOf(const std::function<void()>& work) {
  try {
    work();
  } catch (const FileError& error) {
    return error.code();
  }
  return {};
}

TEST(AtomicFile, ReplacesOrCreatesItsTarget) {
  const TemporaryFolder folder;
  for (const char* name : {"plain", "汉字 \xF0\x9F\x98\x80.txt", "not utf-8 \xFF"}) {
    const fs::path target = folder.path() / name;
    ReplaceFileContent(target, "new");
    EXPECT_EQ(ReadWholeFile(target), "new");
    ReplaceFileContent(target, "");
    EXPECT_EQ(ReadWholeFile(target), "");
    const std::string large(1'000'000, 'x');
    ReplaceFileContent(target, large);
    EXPECT_EQ(ReadWholeFile(target), large);
  }
  EXPECT_EQ(FilesIn(folder.path()), 3);
}

TEST(AtomicFile, TakesARelativeNameAndOneAsLongAsAllowed) {
  const TemporaryFolder folder;
  const fs::path before = fs::current_path();
  fs::current_path(folder.path());
  ReplaceFileContent("relative", "a");
  ReplaceFileContent(std::string(255, 'n'), "b");
  EXPECT_EQ(CodeOf([] { ReplaceFileContent(std::string(256, 'n'), "c"); }), std::errc::filename_too_long);
  fs::current_path(before);
  EXPECT_EQ(ReadWholeFile(folder.path() / "relative"), "a");
  EXPECT_EQ(FilesIn(folder.path()), 2);
}

TEST(AtomicFile, LeavesEverythingAsItWasWithoutCommit) {
  const TemporaryFolder folder;
  const fs::path target = folder.Put("target", "old");
  {
    AtomicFile file(target);
    file.Write("new");
    EXPECT_EQ(ReadWholeFile(target), "old");
    file.Prepare();
    EXPECT_EQ(ReadWholeFile(target), "old");
  }
  EXPECT_EQ(ReadWholeFile(target), "old");
  EXPECT_EQ(FilesIn(folder.path()), 1);
}

TEST(AtomicFile, KeepsPermissions) {
  const TemporaryFolder folder;
  const fs::path target = folder.Put("target", "old");
  for (const mode_t mode : {0600U, 0640U, 0755U, 0666U}) {
    chmod(target.c_str(), mode);
    AtomicFile file(target);
    // What is secret is so from the first byte on.
    for (const auto& entry : fs::directory_iterator(folder.path())) {
      struct stat status = {};
      stat(entry.path().c_str(), &status);
      EXPECT_EQ(status.st_mode & 0777U, mode) << entry.path();
    }
    file.Commit();
  }
}

TEST(AtomicFile, FollowsSymbolicLinks) {
  const TemporaryFolder folder;
  fs::create_directory(folder.path() / "sub");
  folder.Put("sub/target", "old");
  fs::create_symlink("sub/target", folder.path() / "link");
  fs::create_symlink(folder.path() / "link", folder.path() / "linkToLink");
  ReplaceFileContent(folder.path() / "linkToLink", "new");
  EXPECT_TRUE(fs::is_symlink(folder.path() / "link"));
  EXPECT_TRUE(fs::is_symlink(folder.path() / "linkToLink"));
  EXPECT_EQ(ReadWholeFile(folder.path() / "sub/target"), "new");

  fs::create_symlink("sub/missing", folder.path() / "dangling");
  ReplaceFileContent(folder.path() / "dangling", "born");
  EXPECT_EQ(ReadWholeFile(folder.path() / "sub/missing"), "born");

  fs::create_symlink("circle", folder.path() / "circle");
  EXPECT_EQ(CodeOf([&] { ReplaceFileContent(folder.path() / "circle", ""); }),
            std::errc::too_many_symbolic_link_levels);
}

TEST(AtomicFile, RefusesWhatItMustNotReplace) {
  const TemporaryFolder folder;
  const fs::path readOnly = folder.Put("readOnly", "old");
  chmod(readOnly.c_str(), 0444);
  EXPECT_EQ(CodeOf([&] { ReplaceFileContent(readOnly, "new"); }), std::errc::permission_denied);
  EXPECT_EQ(ReadWholeFile(readOnly), "old");
  EXPECT_EQ(CodeOf([&] { ReplaceFileContent(folder.path(), "new"); }), std::errc::is_a_directory);
  EXPECT_EQ(CodeOf([&] { ReplaceFileContent(folder.path() / "no/such", "new"); }),
            std::errc::no_such_file_or_directory);
  EXPECT_EQ(CodeOf([&] { ReplaceFileContent(readOnly / "below", "new"); }), std::errc::not_a_directory);
  mkfifo((folder.path() / "pipe").c_str(), 0600);
  EXPECT_EQ(CodeOf([&] { ReplaceFileContent(folder.path() / "pipe", "new"); }), std::errc::operation_not_supported);
  EXPECT_EQ(FilesIn(folder.path()), 2);
}

TEST(AtomicFile, LeavesTheOldFileWhenTheDiskIsFull) {
  const TemporaryFolder folder;
  const fs::path target = folder.Put("target", "old");
  for (const std::size_t size : {100'000U, 10'000'000U}) {  // noticed on flushing, on writing
    const FileSizeLimit full(50'000);
    EXPECT_EQ(CodeOf([&] { ReplaceFileContent(target, std::string(size, 'x')); }), std::errc::file_too_large);
    EXPECT_EQ(ReadWholeFile(target), "old");
    EXPECT_EQ(FilesIn(folder.path()), 1);
  }
}

TEST(AtomicFile, IsOnTheDiskBeforeItTakesTheOldFilesPlace) {
  const TemporaryFolder folder;
  const fs::path target = folder.Put("target", "old");
  std::vector<std::string> atFlush;
  onFlush = [&] { atFlush.push_back(ReadWholeFile(target)); };
  ReplaceFileContent(target, "new");
  onFlush = nullptr;
  ASSERT_FALSE(atFlush.empty());
  EXPECT_EQ(atFlush.front(), "old");
}

TEST(AtomicFile, LeavesTheOldFileOrTheNewOneWhenTheProgramIsKilled) {
  const std::string expected[] = {"old", "old", "old", "new"};
  for (int step = 0; step < 4; ++step) {
    const TemporaryFolder folder;
    const fs::path target = folder.Put("target", "old");
    const pid_t child = fork();
    if (child == 0) {
      const auto dieAt = [step](int now) {
        if (now == step) {
          raise(SIGKILL);
        }
      };
      AtomicFile file(target);
      dieAt(0);
      file.Write("new");
      dieAt(1);
      file.Prepare();
      dieAt(2);
      file.Commit();
      dieAt(3);
      _exit(1);
    }
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFSIGNALED(status)) << step;
    EXPECT_EQ(ReadWholeFile(target), expected[step]) << step;
  }
}

TEST(FileError, NamesTheFileAndTheReason) {
  try {
    FileSource("/no/such/汉字");
    FAIL();
  } catch (const FileError& error) {
    EXPECT_STREQ(error.what(), "'/no/such/汉字': No such file or directory");
  }
}

TEST(PlatformFile, TurnsAnyNameIntoTextAndBack) {
  for (const char* name : {"", "汉字.txt", "caf\xE9", "\xBA\xBA\xD7\xD6", "a\\b"}) {
    EXPECT_EQ(PathOfText(TextOfPath(name)), fs::path(name));
  }
  EXPECT_EQ(TextOfPath("汉字.txt"), u"汉字.txt");
}

// As streams under names of their own, compression and encryption elsewhere.
TEST(AtomicFile, WhatStandsBesideTheContentStays) {
  const TemporaryFolder folder;
  const fs::path target = folder.Put("a.txt", "old");
  constexpr std::string_view kValue = "from a download";
  if (setxattr(target.c_str(), "user.zone", kValue.data(), kValue.size(), 0) != 0) {
    GTEST_SKIP() << "the file system has none";
  }
  ReplaceFileContent(target, "new");
  std::string value(100, '\0');
  const ssize_t size = getxattr(target.c_str(), "user.zone", value.data(), value.size());
  ASSERT_GT(size, 0);
  EXPECT_EQ(value.substr(0, static_cast<std::size_t>(size)), kValue);
  EXPECT_EQ(ReadWholeFile(target), "new");
}

TEST(AtomicFile, WhatAKilledSaveHasLeftIsRemovedOnceItIsOld) {
  const TemporaryFolder folder;
  const auto put = [&folder](const char* name, std::chrono::minutes age) {
    const fs::path file = folder.Put(name, "half");
    fs::last_write_time(file, fs::file_time_type::clock::now() - age);
    return file;
  };
  const fs::path left = put("scrivanta-abcdefghijkl2345.tmp", std::chrono::minutes(2));
  const fs::path young = put("scrivanta-abcdefghijkl2346.tmp", std::chrono::minutes(0));
  const fs::path others[] = {put("scrivanta-abcdefghijkl234.tmp", std::chrono::hours(9)),
                             put("scrivanta-ABCDEFGHijkl2345.tmp", std::chrono::hours(9)),
                             put("scrivanta-abcdefghijkl2345.txt", std::chrono::hours(9))};
  fs::create_directory(folder.path() / "scrivanta-abcdefghijkl2347.tmp");
  RemoveLeftBehind(folder.path());
  EXPECT_FALSE(fs::exists(left));
  EXPECT_TRUE(fs::exists(young));
  for (const fs::path& other : others) {
    EXPECT_TRUE(fs::exists(other)) << other;
  }
  EXPECT_EQ(FilesIn(folder.path()), 5);
}

}  // namespace
}  // namespace scrivanta
