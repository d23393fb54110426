// What of text/PlatformFile.h and text/AtomicFile.h only this platform shows.
#include <windows.h>

#include <filesystem>
#include <functional>
#include <string>
#include <system_error>

#include <gtest/gtest.h>

#include "support/TemporaryFolder.h"
#include "text/AtomicFile.h"
#include "text/PlatformFile.h"
#include "win/Handles.h"

namespace scrivanta {
namespace {

using testing::TemporaryFolder;

std::error_code CodeOf(const std::function<void()>& work) {
  try {
    work();
  } catch (const FileError& error) {
    return error.code();
  }
  return {};
}

std::ptrdiff_t FilesIn(const std::filesystem::path& folder) {
  return std::distance(std::filesystem::directory_iterator(folder), std::filesystem::directory_iterator());
}

OwnedFile OpenAsAnotherProgram(const std::filesystem::path& path, DWORD access, DWORD share) {
  return OwnedFile(CreateFileW(path.c_str(), access, share, nullptr, OPEN_EXISTING, 0, nullptr));
}

TEST(PlatformFile, TakesNamesOutsideTheCodePage) {
  const TemporaryFolder folder;
  for (const wchar_t* name : {L"汉字.txt", L"\U0001F600 ä ñ.txt", L"plain"}) {
    const std::filesystem::path path = folder.path() / name;
    ReplaceFileContent(path, "old");
    ReplaceFileContent(path, "new");
    EXPECT_EQ(ReadWholeFile(path), "new");
    EXPECT_EQ(PathOfText(TextOfPath(path)), path);
  }
  EXPECT_EQ(FilesIn(folder.path()), 3);
  EXPECT_EQ(PathOfText(u"a\xD800"
                       u"b")
                .native(),
            L"a\xD800"
            L"b");
}

TEST(PlatformFile, TakesPathsOf300CharactersAndMore) {
  const TemporaryFolder folder;
  std::wstring deep = L"\\\\?\\" + std::filesystem::absolute(folder.path()).make_preferred().native();
  for (int i = 0; i < 3; ++i) {
    deep += L"\\" + std::wstring(120, static_cast<wchar_t>(L'a' + i));
    CreateDirectoryW(deep.c_str(), nullptr);
  }
  const std::filesystem::path path = deep.substr(4) + L"\\汉字.txt";
  ReplaceFileContent(path, "old");
  ReplaceFileContent(path, "new");
  EXPECT_EQ(ReadWholeFile(path), "new");
  EXPECT_EQ(CodeOf([&] { ReadWholeFile(path.parent_path()); }), std::errc::is_a_directory);

  RemoveFile(path);
  for (int i = 0; i < 3; ++i) {
    EXPECT_NE(RemoveDirectoryW(deep.c_str()), 0);
    deep.resize(deep.rfind(L'\\'));
  }
}

TEST(PlatformFile, KeepsAttributes) {
  const TemporaryFolder folder;
  const std::filesystem::path path = folder.Put("target", "old");
  SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_HIDDEN);
  const DWORD before = GetFileAttributesW(path.c_str());
  ReplaceFileContent(path, "new");
  EXPECT_EQ(GetFileAttributesW(path.c_str()), before);
  EXPECT_EQ(ReadWholeFile(path), "new");
}

TEST(PlatformFile, LeavesAloneWhatIsReadOnlyLockedOrNoFile) {
  const TemporaryFolder folder;
  const std::filesystem::path path = folder.Put("target", "old");
  SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_READONLY);
  EXPECT_EQ(CodeOf([&] { ReplaceFileContent(path, "new"); }), std::errc::permission_denied);
  SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
  {
    const OwnedFile locked = OpenAsAnotherProgram(path, GENERIC_READ, FILE_SHARE_READ);
    const std::error_code code = CodeOf([&] { ReplaceFileContent(path, "new"); });
    EXPECT_TRUE(code == std::errc::permission_denied || code == std::errc::device_or_resource_busy) << code;
  }
  EXPECT_EQ(ReadWholeFile(path), "old");
  {
    const OwnedFile exclusive = OpenAsAnotherProgram(path, GENERIC_READ, 0);
    EXPECT_EQ(CodeOf([&] { ReadWholeFile(path); }), std::errc::device_or_resource_busy);
  }
  EXPECT_EQ(CodeOf([&] { ReplaceFileContent(folder.path(), "new"); }), std::errc::is_a_directory);
  EXPECT_EQ(CodeOf([&] { ReplaceFileContent(folder.path() / "no" / "such", "new"); }),
            std::errc::no_such_file_or_directory);
  EXPECT_EQ(CodeOf([&] { ReadWholeFile(folder.path() / "a?b"); }), std::errc::invalid_argument);
  EXPECT_EQ(FilesIn(folder.path()), 1);
}

TEST(PlatformFile, SharesWithOtherPrograms) {
  const TemporaryFolder folder;
  const std::filesystem::path path = folder.Put("target", "old");
  constexpr DWORD kAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  const OwnedFile writer = OpenAsAnotherProgram(path, GENERIC_WRITE, kAll);
  EXPECT_EQ(ReadWholeFile(path), "old");

  FileSink sink(folder.path() / "ours");
  EXPECT_TRUE(OpenAsAnotherProgram(folder.path() / "ours", GENERIC_READ, kAll));
  EXPECT_FALSE(OpenAsAnotherProgram(folder.path() / "ours", GENERIC_WRITE, kAll));
}

}  // namespace
}  // namespace scrivanta
