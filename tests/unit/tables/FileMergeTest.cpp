#include <gtest/gtest.h>

#include "support/ScriptedWorkbench.h"
#include "support/TemporaryFolder.h"
#include "tables/FileMerge.h"
#include "tables/MergeDialog.h"
#include "text/Bytes.h"
#include "text/PlatformFile.h"

namespace scrivanta::testing {
namespace {

NoProgress progress;

std::string Merged(const std::vector<std::filesystem::path>& places, const MergeOptions& options = {}) {
  StringSink sink;
  const FilesToMerge found = FindFilesToMerge({.places = places, .pattern = {}, .targets = {}}, progress);
  EXPECT_TRUE(MergeTextFiles(found.files, sink, options, progress).empty());
  return sink.bytes();
}

std::u16string TitlesOf(const FilesToMerge& found) {
  std::u16string titles;
  for (const FileToMerge& file : found.files) {
    titles += file.title + u" ";
  }
  return titles;
}

TEST(FileMerge, DecodesEachFileByItself) {
  TemporaryFolder folder;
  struct Case {
    std::string bytes;
    std::u16string lines;
  };
  const Case cases[] = {
      {"", u""},
      {"\xD6\xD0\xB9\xFA\n\n", u"中国\r\n\r\n"},
      {"\xE4\xB8\xAD\xE5\x9B\xBD", u"中国\r\n"},
      {"\xEF\xBB\xBF\xC3\xA9\r\na\rb", u"é\r\na\r\nb\r\n"},
      {std::string("\xFF\xFE\x2D\x4E\r\0\n\0\x42\xD8\xB7\xDF", 12), u"中\r\n\U00020BB7\r\n"},
      {"\xFE\xFF\x4E\x2D", u"中\r\n"},
      {"a\r", u"a\r\n"},
  };
  for (const Case& c : cases) {
    const auto path = folder.Put("a.txt", c.bytes);
    for (const Encoding encoding : {Encoding::kGbk, Encoding::kUtf8}) {
      EXPECT_EQ(Decode(encoding, Merged({path}, {.encoding = encoding})), c.lines);
    }
  }
  EXPECT_EQ(Merged({folder.Put("a.rtf", "{\\rtf1 a\\par b}")}), "a\r\nb\r\n");
}

// Longer than the blocks in which files are read, with characters and line ends across their borders.
TEST(FileMerge, ReadsLongFiles) {
  TemporaryFolder folder;
  std::u16string text;
  std::u16string expected;
  for (int i = 0; i < 120'000; ++i) {
    const std::u16string line = i % 7 == 0 ? u"a中\U00020BB7é" : u"字";
    text += line + (i % 3 == 0 ? u"\n" : u"\r\n");
    expected += line + u"\r\n";
  }
  const auto utf8 = folder.Put("1.txt", Encode(Encoding::kUtf8, text));
  std::string utf16 = "\xFF\xFE";
  for (const char16_t unit : text) {
    utf16 += {static_cast<char>(unit & 0xFFU), static_cast<char>(unit >> 8U)};
  }
  for (const auto& path : {utf8, folder.Put("2.txt", utf16), folder.Put("3.txt", Encode(Encoding::kGbk, text))}) {
    EXPECT_TRUE(Decode(Encoding::kGbk, Merged({path})) == expected) << path;
    EXPECT_TRUE(Decode(Encoding::kUtf8, Merged({path}, {.encoding = Encoding::kUtf8})) == expected) << path;
  }
}

TEST(FileMerge, TakesFilesInNaturalOrderAndNeverTheTarget) {
  TemporaryFolder folder;
  std::filesystem::create_directories(folder.path() / "b2");
  for (const char* name : {"10.txt", "2.TXT", "02.txt", "a.log", "b2/1.txt", "all.txt"}) {
    folder.Put(name, "x");
  }
  MergePlaces places{.places = {folder.path()}, .pattern = u"*.txt", .targets = {folder.path() / "." / "all.txt"}};
  EXPECT_EQ(TitlesOf(FindFilesToMerge(places, progress)), u"02.txt 2.TXT 10.txt ");
  places.subfolders = true;
  const FilesToMerge found = FindFilesToMerge(places, progress);
  EXPECT_EQ(TitlesOf(found), u"02.txt 2.TXT 10.txt " + TextOfPath(std::filesystem::path("b2") / "1.txt") + u" ");
  EXPECT_FALSE(found.targetIsNamed);
  places.places = {folder.path() / "a.log", folder.path() / "all.txt"};
  EXPECT_TRUE(FindFilesToMerge(places, progress).targetIsNamed);
}

struct ScriptedMergeView final : public MergeView {
  std::u16string Pattern() const override { return u"*.txt"; }
  bool WithSubfolders() const override { return false; }
  bool WithTitles() const override { return true; }
  bool IntoFile() const override { return intoFile; }
  void ShowPlaces(const std::vector<std::u16string>& lines) override { shown = lines; }
  void CloseView() override { closed = true; }

  bool intoFile = false;
  bool closed = false;
  std::vector<std::u16string> shown;
};

TEST(MergeDialog, MergesIntoTheDocumentAndNamesWhatItCouldNotRead) {
  TemporaryFolder folder;
  const auto one = folder.Put("10.txt", "\xD2\xBB");
  const auto two = folder.Put("9.txt", "b");
  const auto binary = folder.Put("8.txt", std::string("\0\1", 2));
  const auto missing = folder.path() / "7.txt";
  ScriptedWorkbench workbench;
  workbench.editor().Open(u"前[]后", {{1}, 2});
  ScriptedMergeView view;
  MergeDialog dialog(workbench);
  dialog.Add({one, two}, view);
  dialog.Add({binary, missing, one}, view);
  EXPECT_EQ(view.shown, (std::vector{TextOfPath(missing), TextOfPath(binary), TextOfPath(two), TextOfPath(one)}));
  dialog.Start(view);
  EXPECT_TRUE(view.closed);
  EXPECT_EQ(workbench.editor().Text(), u"前9.txt\r\nb\r\n10.txt\r\n一\r\n后");
  EXPECT_EQ(workbench.editor().changes, 1);
  EXPECT_EQ(workbench.prompts().messages.at(0).text, u"已合并2个文件\n以下文件或文件夹未能读取：\n" +
                                                         TextOfPath(missing) + u"：文件不存在\n" + TextOfPath(binary) +
                                                         u"：是二进制文件");
}

TEST(MergeDialog, WritesAFileButNoneOfThoseThatItReads) {
  TemporaryFolder folder;
  const auto one = folder.Put("1.txt", "a");
  ScriptedWorkbench workbench;
  ScriptedMergeView view;
  view.intoFile = true;
  MergeDialog dialog(workbench);
  dialog.Add({one}, view);
  workbench.prompts().Will(one);
  workbench.prompts().Will(Answer::kYes);
  dialog.Start(view);
  EXPECT_FALSE(view.closed);
  EXPECT_EQ(ReadWholeFile(one), "a");
  workbench.prompts().Will(folder.path() / "all.txt");
  dialog.Start(view);
  EXPECT_EQ(ReadWholeFile(folder.path() / "all.txt"), "1.txt\r\na\r\n");
  EXPECT_EQ(workbench.editor().changes, 0);
}

}  // namespace
}  // namespace scrivanta::testing
