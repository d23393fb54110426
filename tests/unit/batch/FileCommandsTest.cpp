#include <gtest/gtest.h>

#include "search/FileReport.h"
#include "support/BatchRun.h"
#include "support/TemporaryFolder.h"
#include "text/Bytes.h"
#include "text/Encoding.h"
#include "text/PlatformFile.h"

namespace scrivanta::testing {
namespace {

std::string Argument(const std::filesystem::path& path) {
  return Encode(Encoding::kUtf8, TextOfPath(path));
}

TEST(FindInFiles, ListsFilesWithAndWithout) {
  TemporaryFolder folder;
  std::filesystem::create_directories(folder.path() / "子" / "下");
  const auto gbk = folder.Put("a.txt", "\xD6\xD0\r\n\xCE\xC4\xD6\xD0");
  const auto utf8 = folder.Put("子/b.txt", "\xE4\xB8\xAD\n");
  const auto none = folder.Put("子/下/c.log", "x");
  folder.Put("d.bin", std::string("\0\0", 2));
  const std::string all = Argument(folder.path());
  const BatchResult found = RunBatchOn("", {"find-in-files", "--find", "\xE4\xB8\xAD", "--encoding", "utf-8", all});
  EXPECT_EQ(found.status, 0) << found.errors;
  EXPECT_EQ(found.output,
            Encode(Encoding::kUtf8, u"以下文件 含有 查找内容：中（2个文件）\r\n``" + TextOfPath(gbk) +
                                        u"\r\n    2处，第1行：中\r\n``" + TextOfPath(utf8) +
                                        u"\r\n    1处，第1行：中\r\n\r\n以下文件 不含有 查找内容：中（1个文"
                                        u"件）\r\n``" +
                                        TextOfPath(none) + u"\r\n\r\n跳过二进制文件：1个\r\n"));
  const BatchResult byPattern = RunBatchOn("", {"find-in-files", "--find", "^X$", "--regexp", "--ignore-case", all});
  EXPECT_EQ(byPattern.status, 0);
  EXPECT_EQ(PathsOfLines(Decode(Encoding::kGbk, byPattern.output), PathLines::kMarked).front(), none);
  EXPECT_EQ(RunBatchOn("", {"find-in-files", "--find", "X", all}).status, 1);
}

// Names that the parser of arguments might take for something else.
TEST(FindInFiles, TakesNamesAsTheyStand) {
  TemporaryFolder folder;
  const auto before = std::filesystem::current_path();
  std::filesystem::current_path(folder.path());
  for (const char* name : {"[a,b]", "[a]", "sort", "a,b"}) {
    std::filesystem::create_directory(name);
    folder.Put(std::string(name) + "/f.txt", "x");
  }
  const BatchResult found = RunBatchOn("", {"find-in-files", "[a,b]", "[a]", "--find", "[x]", "sort", "a,b"});
  std::filesystem::current_path(before);
  EXPECT_EQ(found.status, 1) << found.errors;
  const auto paths = PathsOfLines(Decode(Encoding::kGbk, found.output), PathLines::kMarked);
  const std::vector<std::filesystem::path> expected = {"[a,b]/f.txt", "[a]/f.txt", "sort/f.txt", "a,b/f.txt"};
  EXPECT_EQ(paths, expected);
}

TEST(FindInFiles, RefusesWhatCannotBeUsed) {
  TemporaryFolder folder;
  const std::string all = Argument(folder.path());
  EXPECT_EQ(RunBatchOn("", {"find-in-files", "--find", "x"}).status, 2);
  EXPECT_EQ(RunBatchOn("", {"find-in-files", all}).status, 2);
  EXPECT_EQ(RunBatchOn("", {"find-in-files", "--find", "", all}).status, 2);
  EXPECT_EQ(RunBatchOn("", {"find-in-files", "--find", "x", "--unknown", all}).status, 2);
  EXPECT_EQ(RunBatchOn("", {"find-in-files", "--find", "(", "--regexp", all}).status, 2);
  const BatchResult missing = RunBatchOn("", {"find-in-files", "--find", "x", all, all + "/missing"});
  EXPECT_EQ(missing.status, 3);
  EXPECT_EQ(missing.output, "");
  EXPECT_NE(missing.errors.find("missing"), std::string::npos);
}

TEST(MergeFiles, WritesNoneOfItsOwnOutputAndNothingWhenAFileIsMissing) {
  TemporaryFolder folder;
  const auto ten = folder.Put("10.txt", "\xD6\xD0");
  folder.Put("9.txt", "b\n");
  folder.Put("a.log", "c");
  const auto all = folder.path() / "all.txt";
  const std::vector<std::string> merge = {"merge-files",          "--pattern", "*.txt", "--titles", "-o", Argument(all),
                                          Argument(folder.path())};
  for (int i = 0; i < 2; ++i) {
    const BatchResult result = RunBatchOn("", merge);
    EXPECT_EQ(result.status, 0) << result.errors;
    EXPECT_EQ(ReadWholeFile(all), "9.txt\r\nb\r\n10.txt\r\n\xD6\xD0\r\n");
  }
  EXPECT_EQ(RunBatchOn("", {"merge-files", Argument(ten), Argument(all), "-o", Argument(ten)}).status, 2);
  EXPECT_EQ(RunBatchOn("", {"merge-files", Argument(folder.path() / "none.txt"), "-o", Argument(ten)}).status, 3);
  const auto binary = folder.Put("b.bin", std::string(2, '\0'));
  const BatchResult failed =
      RunBatchOn("", {"merge-files", Argument(ten), Argument(binary), "-o", Argument(ten) + "2"});
  EXPECT_EQ(failed.status, 3);
  EXPECT_NE(failed.errors.find(Argument(binary)), std::string::npos);
  EXPECT_EQ(ReadWholeFile(ten), "\xD6\xD0");
}

TEST(DownloadList, ListsEachAddressOnce) {
  TemporaryFolder folder;
  folder.Put("10.cfg", "http://a.cn/ http://b.cn/");
  const auto second = folder.Put("9.cfg", "thunder://QUFodHRwOi8vYS5jbi8xWlo=");
  const BatchResult result = RunBatchOn("", {"download-list", Argument(folder.path()), Argument(second)});
  EXPECT_EQ(result.status, 0) << result.errors;
  EXPECT_EQ(result.output, "http://a.cn/1\r\nhttp://a.cn/\r\nhttp://b.cn/\r\n");
  EXPECT_EQ(RunBatchOn("", {"download-list", Argument(folder.Put("c", "x"))}).status, 1);
}

}  // namespace
}  // namespace scrivanta::testing
