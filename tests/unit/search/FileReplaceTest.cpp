#include <random>

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "regexp/MultiReplace.h"
#include "search/FileReplace.h"
#include "search/KeptFiles.h"
#include "search/ReplacePreview.h"
#include "search/UndoFileReplace.h"
#include "support/FileSizeLimit.h"
#include "support/ScriptedWorkbench.h"
#include "support/TemporaryFolder.h"
#include "text/ExplainedError.h"

namespace scrivanta {
namespace {

// Stops the work, or the process, at a report.
class StopsAt final : public Progress {
 public:
  explicit StopsAt(std::uint64_t done, bool kills = false) : done_(done), kills_(kills) {}
  void Report(std::uint64_t done, std::uint64_t) override {
    if (done < done_) {
      return;
    }
    if (kills_) {
      _exit(0);
    }
    throw Interrupted();
  }

 private:
  std::uint64_t done_;
  bool kills_;
};

struct RecordedPreview final : PreviewView {
  void ShowFolder(const std::u16string& text) override { folder = text; }
  void ShowRows(const std::vector<PreviewRow>& all) override { rows = all; }
  void ShowTicks() override {}
  void ShowCount(const std::u16string& text) override { count = text; }
  void EnableReplace(bool enable) override { mayReplace = enable; }
  void Leave() override { left = true; }

  std::u16string folder;
  std::vector<PreviewRow> rows;
  std::u16string count;
  bool mayReplace = false;
  bool left = false;
};

class FileReplaceTest : public ::testing::Test {
 protected:
  ReplacePlan Plan(const std::vector<std::filesystem::path>& files, const ReplaceRule& rule, ShownPlaces most = {}) {
    return PlanReplacement(files, rule, none, most);
  }
  std::string Read(const std::filesystem::path& path) const { return ReadWholeFile(path); }
  std::filesystem::path kept() const { return folder.path() / "kept"; }

  testing::TemporaryFolder folder;
  NoProgress none;
  const ReplaceRule aToB{{.findText = u"a", .replacement = u"b"}, BuiltInRegExpEngine()};
};

// All places together do what the list does, one text after the other; each alone changes nothing but its own stretch.
TEST_F(FileReplaceTest, PlacesOfAListAreIndependentAndDoTheSameTogether) {
  std::mt19937 random(1);
  const auto pick = [&random](std::size_t longest) {
    std::u16string text(random() % (longest + 1), u'a');
    for (char16_t& c : text) {
      c = static_cast<char16_t>(u'a' + random() % 3);
    }
    return text;
  };
  for (int round = 0; round < 500; ++round) {
    const std::u16string text = pick(12);
    std::u16string find = pick(3);
    std::u16string replacement = pick(3);
    for (int pair = 0; pair < 2; ++pair) {
      find += u"|" + pick(3);
      replacement += u"|" + pick(3);
    }
    std::u16string expected = text;
    MultiReplace(find, replacement, false).Apply(expected, none);
    const auto file = folder.Put("f.txt", std::string(text.begin(), text.end()));
    const ReplaceRule rule({.findText = find, .replacement = replacement, .matchesCase = true}, BuiltInRegExpEngine());
    const auto found = rule.FindIn(file, none);
    ASSERT_TRUE(found);
    ASSERT_EQ(WithEdits(text, found->edits), expected) << round;
    std::size_t end = 0;
    for (const TextEdit& edit : found->edits) {
      ASSERT_GE(edit.start, end) << round;
      end = edit.start + edit.length;
      ASSERT_LE(end, text.size()) << round;
    }
  }
}

TEST_F(FileReplaceTest, ShowsLinesBeforeAndAfter) {
  const std::u16string far(200, u'x');
  const ReplaceRule rule({.findText = u"a+\\r\\n|中", .replacement = u"[$&]", .isRegExp = true}, BuiltInRegExpEngine());
  const auto text =
      folder.Put("1.txt", "one\n" + std::string(200, 'x') + "\xD6\xD0" + std::string(200, 'x') + "\n.aa\nb\n");
  const auto rich = folder.Put("2.rtf", "{\\rtf1\\ansi\\ansicpg936 \\'d6\\'d0, \\b \\'d6\\'d0\\b0\\par}");
  const auto binary = folder.Put("3.txt", std::string("\xD6\xD0\0\0", 4));
  const ReplacePlan plan = Plan({text, rich, binary, folder.path() / "gone.txt", folder.Put("4.txt", "b")}, rule);
  ASSERT_EQ(plan.files.size(), 2U);
  ASSERT_EQ(plan.files[0].shown.size(), 2U);
  EXPECT_EQ(plan.files[0].shown[0].line, 2U);
  EXPECT_EQ(plan.files[0].shown[0].before, u"…" + far.substr(0, 20) + u"中" + far.substr(0, 60) + u"…");
  EXPECT_EQ(plan.files[0].shown[0].after, u"…" + far.substr(0, 20) + u"[中]" + far.substr(0, 60) + u"…");
  EXPECT_EQ(plan.files[0].shown[1].line, 3U);
  EXPECT_EQ(plan.files[0].shown[1].before, u".aa\r\nb");
  EXPECT_EQ(plan.files[0].shown[1].after, u".[aa\r\n]b");
  EXPECT_EQ(plan.files[1].shown[0].after, u"[中], 中");
  EXPECT_EQ(plan.binaries, std::vector{binary});
  ASSERT_EQ(plan.failures.size(), 1U);
  EXPECT_EQ(plan.failures[0].reason, u"文件不存在");
  EXPECT_EQ(plan.TickedPlaces(), 4U);
}

TEST_F(FileReplaceTest, LeavesOutWhatFormattingPartsAndWhatChangesNothing) {
  const ReplaceRule rule({.findText = u"cat|dog", .replacement = u"CAT|dog"}, BuiltInRegExpEngine());
  const auto rich = folder.Put("2.rtf", "{\\rtf1\\ansi CAT cat c\\b a\\b0 t dog\\par}");
  ReplacePlan plan = Plan({rich}, rule);
  ASSERT_EQ(plan.Places(), 1U);
  EXPECT_EQ(plan.split, 1U);
  EXPECT_EQ(plan.failures.at(0).reason, u"有1处被格式代码分开");
  testing::ScriptedWorkbench workbench;
  RecordedPreview view;
  ReplacePreview(workbench, plan).Open(view);
  EXPECT_EQ(view.count, u"已勾选1个文件中的1处，共1个文件1处；另有1处被格式代码分开，不能替换");
  EXPECT_TRUE(CarryOut(plan, rule, {}, none).leftOver.empty());
  EXPECT_EQ(Read(rich), "{\\rtf1\\ansi CAT CAT c\\b a\\b0 t dog\\par}");
}

TEST_F(FileReplaceTest, ShowsNoMoreThanCanBeReadButReplacesAll) {
  const auto one = folder.Put("1.txt", "aaaa");
  const auto two = folder.Put("2.txt", "aaaa");
  ReplacePlan plan = Plan({one, two}, aToB, {.ofFile = 3, .inAll = 5});
  EXPECT_EQ(plan.files[0].shown.size(), 3U);
  EXPECT_EQ(plan.files[1].shown.size(), 2U);
  plan.files[0].ticks[1] = false;
  plan.files[1].ticks[3] = false;
  EXPECT_EQ(plan.TickedPlaces(), 6U);
  EXPECT_EQ(CarryOut(plan, aToB, {}, none).Places(), 6U);
  EXPECT_EQ(Read(one), "babb");
  EXPECT_EQ(Read(two), "bbba");
}

TEST_F(FileReplaceTest, PutsBackWhatItReplacedByteForByte) {
  const std::string mixed = "a\r\nx\na\xFF";
  const auto one = folder.Put("1.txt", mixed);
  const auto two = folder.Put("2%\n.txt",
                              "\xEF\xBB\xBF"
                              "a");
  const auto three = folder.Put("3.txt", "a");
  const auto stays = folder.Put("4.txt", "a");
  ReplacePlan plan = Plan({one, two, three, stays}, aToB);
  plan.files[0].ticks[0] = false;
  plan.files[3].ticks[0] = false;
  folder.Put("3.txt", "a!");
  const FileReplaceOutcome outcome = CarryOut(plan, aToB, kept(), none);
  ASSERT_EQ(outcome.leftOver.size(), 1U);
  EXPECT_EQ(outcome.leftOver[0].path, three);
  EXPECT_EQ(outcome.leftOver[0].reason, u"预览以后又变了");
  EXPECT_EQ(Read(one), "a\r\nx\nb\xFF");
  EXPECT_EQ(Read(two),
            "\xEF\xBB\xBF"
            "b");
  EXPECT_EQ(Read(stays), "a");
  EXPECT_EQ(FilesKept(kept()).size(), 2U);

  const PutBackOutcome back = PutBackKept(kept(), none);
  EXPECT_EQ(back.restored, 2U);
  EXPECT_TRUE(back.failures.empty());
  EXPECT_EQ(Read(one), mixed);
  EXPECT_EQ(Read(two),
            "\xEF\xBB\xBF"
            "a");
  EXPECT_TRUE(FilesKept(kept()).empty()) << "nothing is left to put back";
  EXPECT_EQ(PutBackKept(kept(), none).restored, 0U);
  EXPECT_EQ(CarryOut(plan, aToB, {}, none).leftOver.size(), 1U) << "kept or not, what has changed stays";
}

TEST_F(FileReplaceTest, PutsNothingOverWhatWasWrittenSince) {
  const auto one = folder.Put("1.txt", "a");
  const auto two = folder.Put("2.txt", "a");
  const auto three = folder.Put("3.txt", "a");
  CarryOut(Plan({one, two, three}, aToB), aToB, kept(), none);
  folder.Put("2.txt", "mine");
  const auto copy = FilesKept(kept())[2].copy;
  FileSink(copy).Write("x");
  const PutBackOutcome back = PutBackKept(kept(), none);
  EXPECT_EQ(back.restored, 1U);
  ASSERT_EQ(back.failures.size(), 2U);
  EXPECT_EQ(back.failures[0].path, two);
  EXPECT_EQ(back.failures[0].reason, u"替换以后又变了");
  EXPECT_EQ(back.failures[1].reason, u"留存的内容已经损坏");
  EXPECT_EQ(Read(two), "mine");
  EXPECT_EQ(Read(three), "b");
  // What could not be put back is kept on, and can be as soon as the reason is gone.
  ASSERT_EQ(FilesKept(kept()).size(), 2U);
  folder.Put("2.txt", "b");
  EXPECT_EQ(PutBackKept(kept(), none).restored, 1U);
  EXPECT_EQ(Read(two), "a");
}

TEST_F(FileReplaceTest, KeepsTheLastRunThatReplacedAnything) {
  const auto one = folder.Put("1.txt", "a");
  CarryOut(Plan({one}, aToB), aToB, kept(), none);
  ReplacePlan late = Plan({folder.Put("2.txt", "a")}, aToB);
  folder.Put("2.txt", "other");
  CarryOut(late, aToB, kept(), none);
  ASSERT_EQ(FilesKept(kept()).size(), 1U);
  EXPECT_EQ(FilesKept(kept())[0].path, one) << "the second run has replaced nothing";
  const auto three = folder.Put("3.txt", "a");
  CarryOut(Plan({three}, aToB), aToB, kept(), none);
  ASSERT_EQ(FilesKept(kept()).size(), 1U);
  EXPECT_EQ(FilesKept(kept())[0].path, three);
  const auto runs = std::distance(std::filesystem::directory_iterator(kept()), std::filesystem::directory_iterator());
  EXPECT_EQ(runs, 1) << "no run before it is left";
}

TEST_F(FileReplaceTest, TellsWhatIsDoneWhenItIsStopped) {
  const std::vector files = {folder.Put("1.txt", "a"), folder.Put("2.txt", "a"), folder.Put("3.txt", "a")};
  const ReplacePlan plan = Plan(files, aToB);
  StopsAt keeping(2);
  const FileReplaceOutcome early = CarryOut(plan, aToB, kept(), keeping);
  EXPECT_TRUE(early.changed.empty());
  EXPECT_EQ(early.untouchedFiles, 3U);
  EXPECT_TRUE(FilesKept(kept()).empty());
  StopsAt replacing(4);  // three are kept, one is replaced
  const FileReplaceOutcome late = CarryOut(plan, aToB, kept(), replacing);
  EXPECT_EQ(late.changed.size(), 1U);
  EXPECT_EQ(late.untouchedFiles, 2U);
  EXPECT_EQ(late.leftOver.size(), 2U);
  EXPECT_EQ(Read(files[0]), "b");
  EXPECT_EQ(Read(files[1]), "a");
  EXPECT_EQ(FilesKept(kept()).size(), 1U);
  StopsAt atOnce(0);
  EXPECT_EQ(PutBackKept(kept(), atOnce).untouched, 1U);
  EXPECT_EQ(PutBackKept(kept(), none).restored, 1U);
  EXPECT_EQ(Read(files[0]), "a");
}

TEST_F(FileReplaceTest, ReplacesNothingWhenTheFilesCannotBeKept) {
  const auto one = folder.Put("1.txt", "a");
  const auto two = folder.Put("2.txt", std::string(6'000, 'a'));
  const ReplacePlan plan = Plan({one, two}, aToB);
  {
    const testing::FileSizeLimit full(3'000);
    EXPECT_THROW(CarryOut(plan, aToB, kept(), none), NotKept);
  }
  EXPECT_EQ(Read(one), "a");
  EXPECT_TRUE(FilesKept(kept()).empty());
  EXPECT_TRUE(std::filesystem::is_empty(kept())) << "half a run is of no use";
  const KeepingRun other(kept());
  EXPECT_THROW(CarryOut(plan, aToB, kept(), none), ExplainedError) << "somebody else is at it";
  EXPECT_EQ(Read(one), "a");
}

TEST_F(FileReplaceTest, HasAWayBackWheneverItIsKilled) {
  const std::vector files = {folder.Put("1.txt", "a"), folder.Put("2.txt", "a")};
  for (std::uint64_t moment = 0; moment <= 4; ++moment) {
    const pid_t child = fork();
    if (child == 0) {
      StopsAt kill(moment, true);
      CarryOut(Plan(files, aToB), aToB, kept(), kill);
      _exit(1);
    }
    int status = 0;
    waitpid(child, &status, 0);
    ASSERT_EQ(status, 0) << moment;
    const std::size_t replaced = moment > 2 ? moment - 2 : 0;
    EXPECT_EQ(PutBackKept(kept(), none).restored, replaced) << moment;
    EXPECT_EQ(Read(files[0]) + Read(files[1]), "aa");
  }
}

TEST_F(FileReplaceTest, ThePreviewTakesTicksOfPlacesFilesAndAll) {
  std::filesystem::create_directory(folder.path() / "sub");
  ReplacePlan plan = Plan({folder.Put("1.txt", "a\r\na a a"), folder.Put("sub/2.txt", "a\t|")}, aToB, {.ofFile = 2});
  testing::ScriptedWorkbench workbench;
  ReplacePreview preview(workbench, plan);
  RecordedPreview view;
  preview.Open(view);
  EXPECT_EQ(view.folder, u"文件夹：" + folder.path().u16string());
  ASSERT_EQ(view.rows.size(), 4U);
  EXPECT_EQ(view.rows[1].line, u"2");
  EXPECT_EQ(view.rows[1].after, u"b a a");
  EXPECT_EQ(view.rows[2].before, u"（另有2处没有列出）");
  EXPECT_EQ(view.rows[3].file, u"sub/2.txt");
  EXPECT_EQ(view.rows[3].before, u"a<制表符>|");
  EXPECT_EQ(view.count, u"已勾选2个文件中的5处，共2个文件5处");
  preview.Toggle(view, {2, 3});
  EXPECT_EQ(view.count, u"已勾选1个文件中的2处，共2个文件5处");
  preview.ToggleFile(view, 0);
  EXPECT_TRUE(preview.IsTicked(2)) << "one of them was not ticked, so all are";
  preview.ToggleFile(view, 0);
  EXPECT_EQ(view.count, u"已勾选0个文件中的0处，共2个文件5处");
  EXPECT_FALSE(view.mayReplace);
  preview.TickAll(view, true);
  preview.Toggle(view, {0});
  workbench.prompts().Will(Answer::kNo);
  preview.Replace(view);
  EXPECT_FALSE(view.left);
  workbench.prompts().Will(Answer::kYes);
  preview.Replace(view);
  EXPECT_TRUE(view.left && preview.isAccepted());
  EXPECT_TRUE(workbench.prompts().messages.back().text.starts_with(u"将在2个文件中替换4处。"));
}

TEST_F(FileReplaceTest, TheCommandPutsBackAndTellsWhatItCannot) {
  testing::ScriptedWorkbench workbench;
  CommandTable table;
  RegisterUndoFileReplace(table, workbench.folders());
  EXPECT_FALSE(table.IsAvailable("mnuUndoFileReplace", {}));
  const auto one = folder.Put("1.txt", "a");
  const auto two = folder.Put("2.txt", "a");
  CarryOut(Plan({one, two}, aToB), aToB, KeptFolder(workbench.folders()), none);
  ASSERT_TRUE(table.IsAvailable("mnuUndoFileReplace", {}));
  folder.Put("2.txt", "mine");
  workbench.prompts().Will(Answer::kNo);
  table.Run("mnuUndoFileReplace", workbench);
  EXPECT_EQ(Read(one), "b");
  workbench.prompts().Will(Answer::kYes);
  table.Run("mnuUndoFileReplace", workbench);
  EXPECT_EQ(Read(one), "a");
  EXPECT_EQ(workbench.status, u"已还原1个文件");
  EXPECT_TRUE(workbench.prompts().messages.back().text.starts_with(
      u"没有全部还原。\n以下文件没有还原，替换之前的内容还留着：\n" + two.u16string() + u"：替换以后又变了\n留在："));
  folder.Put("2.txt", "b");
  workbench.prompts().Will(Answer::kYes);
  table.Run("mnuUndoFileReplace", workbench);
  EXPECT_EQ(Read(two), "a");
  EXPECT_FALSE(table.IsAvailable("mnuUndoFileReplace", {}));
}

}  // namespace
}  // namespace scrivanta
