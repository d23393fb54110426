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

TEST(ReplaceInFiles, ListsReplacesAndPutsBack) {
  TemporaryFolder folder;
  std::filesystem::create_directory(folder.path() / "sub");
  const auto one = folder.Put("1.txt", "x\n\xD6\xD0 a\n");
  const auto two = folder.Put("sub/2.txt", "a");
  const auto log = folder.Put("3.log", "a");
  folder.Put("4.txt", std::string("a\0\0", 3));
  const std::string all = Argument(folder.path());
  const std::string kept = Argument(folder.path() / "kept");
  std::vector<std::string> replace = {"multi-replace", "--in-files", "--find",      "A|x",    "--replace", "b|y",
                                      "--ignore-case", "--files",    "*.txt;*.bak", "--undo", kept,        all};
  replace.insert(replace.end() - 1, "--dry-run");
  const BatchResult listed = RunBatchOn("", replace);
  EXPECT_EQ(listed.status, 0) << listed.errors;
  EXPECT_EQ(listed.output,
            Argument(one) + ":1\r\n- x\r\n+ y\r\n" + Argument(one) + ":2\r\n- \xD6\xD0 a\r\n+ \xD6\xD0 b\r\n");
  EXPECT_EQ(listed.errors, "scrivanta-batch: passed over because they are no text: 1 files\n");
  EXPECT_EQ(ReadWholeFile(one), "x\n\xD6\xD0 a\n");

  std::replace(replace.begin(), replace.end(), std::string("--dry-run"), std::string("--recursive"));
  const BatchResult replaced = RunBatchOn("", replace);
  EXPECT_EQ(replaced.status, 0) << replaced.errors;
  EXPECT_EQ(replaced.output, "2\t" + Argument(one) + "\r\n1\t" + Argument(two) + "\r\n");
  EXPECT_EQ(ReadWholeFile(one), "y\n\xD6\xD0 b\n");
  EXPECT_EQ(ReadWholeFile(two), "b");
  EXPECT_EQ(ReadWholeFile(log), "a");
  EXPECT_EQ(RunBatchOn("", replace).status, 1) << "what is kept is none of the files";
  replace.insert(replace.end(), {"-o", Argument(folder.Put("list.txt", "a"))});
  EXPECT_EQ(RunBatchOn("", replace).status, 1) << "nor is the list that is written";

  folder.Put("sub/2.txt", "c");
  const BatchResult back = RunBatchOn("", {"multi-replace", "--undo", kept});
  EXPECT_EQ(back.status, 3);
  EXPECT_EQ(back.output, "put back 1 files\r\n");
  EXPECT_EQ(back.errors, "scrivanta-batch: " + Argument(two) + ": it has been changed since\n");
  EXPECT_EQ(ReadWholeFile(one), "x\n\xD6\xD0 a\n");
  EXPECT_EQ(ReadWholeFile(two), "c");
}

TEST(ReplaceInFiles, TakesPatternsAndSaysWhatCannotBeUsed) {
  TemporaryFolder folder;
  const auto file = folder.Put("[a,b].txt", "aa\n^aa\n");
  EXPECT_EQ(RunBatchOn("", {"regexp-replace", "--in-files", "--pattern", "^(a)", "--replacement", "\\1-",
                            "--first-only", Argument(file), Argument(file)})
                .output,
            "1\t" + Argument(file) + "\r\n");
  EXPECT_EQ(ReadWholeFile(file), "a-a\n^aa\n");
  const std::string all = Argument(folder.path());
  for (const std::vector<std::string>& unusable :
       {std::vector<std::string>{"multi-replace", "--in-files", "--find", "a|b", "--replace", "c", all},
        {"multi-replace", "--in-files", "--find", "a", "--replace", "c"},
        {"multi-replace", "--in-files", "--find", "a", all},
        {"multi-replace", "--in-files", all},
        {"multi-replace", "--find", "a", "--replace", "b", "--dry-run", Argument(file)},
        {"multi-replace", "--find", "a", "--replace", "b", Argument(file), all},
        {"multi-replace", "--undo", all, all},
        {"regexp-replace", "--in-files", "--pattern", "(", "--replacement", "", all}}) {
    EXPECT_EQ(RunBatchOn("", unusable).status, 2) << unusable.back();
  }
  EXPECT_EQ(RunBatchOn("", {"multi-replace", "--undo", all}).status, 1) << "nothing is kept there";
}

}  // namespace
}  // namespace scrivanta::testing
