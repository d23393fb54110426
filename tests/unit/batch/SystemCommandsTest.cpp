#include <gtest/gtest.h>

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

BatchResult RunFileTimes(std::vector<std::string> arguments) {
  arguments.insert(arguments.begin(), {"file-times", "--encoding", "utf-8"});
  return RunBatchOn("", arguments);
}

TEST(FileTimesCommand, ChangesAndTakesBack) {
  TemporaryFolder folder;
  std::filesystem::create_directories(folder.path() / "下");
  const std::string file = Argument(folder.Put("IMG_20200102.jpg", ""));
  const std::string below = Argument(folder.Put("下/b.txt", ""));
  const std::string undo = Argument(folder.path() / "undo.txt");
  ASSERT_EQ(RunFileTimes({file, below, "--modified", "2000-01-02 03:04:05"}).status, 0);

  const std::string line = "2000-01-02 03:04:05\t2000-01-03 04:04:05\t";
  const BatchResult listed = RunFileTimes({"--shift", "+1d1h", "--dry-run", "--modified", file});
  EXPECT_EQ(listed.output, line + file + "\r\n") << listed.errors;
  const BatchResult shifted =
      RunFileTimes({Argument(folder.path()), "--recursive", "--modified", "--shift", "+1d1h", "--undo", undo});
  EXPECT_EQ(shifted.output, line + file + "\r\n" + line + below + "\r\n") << shifted.errors;
  const BatchResult back = RunFileTimes({"--undo", undo});
  EXPECT_EQ(back.output, "2000-01-03 04:04:05\t2000-01-02 03:04:05\t" + file + "\r\n" +
                             "2000-01-03 04:04:05\t2000-01-02 03:04:05\t" + below + "\r\n");

  // Only the date, from the name; what has none is told and the rest done.
  const BatchResult named = RunFileTimes({file, below, "--modified", "--from-name", "YYYYMMDD"});
  EXPECT_EQ(named.status, 3);
  EXPECT_EQ(named.output, "2000-01-02 03:04:05\t2020-01-02 03:04:05\t" + file + "\r\n");
  EXPECT_EQ(named.errors, "scrivanta-batch: " + below + ": the name holds no date of this pattern\n");
  const BatchResult two = RunFileTimes({file, "--accessed", "modified", "--modified", "00:00:00", "--dry-run"});
  EXPECT_NE(two.output.find("\t2020-01-02 00:00:00,2020-01-02 03:04:05\t"), std::string::npos) << two.output;
}

TEST(FileTimesCommand, RefusesBeforeItChanges) {
  TemporaryFolder folder;
  const std::string file = Argument(folder.Put("a.txt", ""));
  const std::vector<std::string> unusable[] = {{file},
                                               {file, "--modified"},
                                               {file, "--modified", "2021-02-29"},
                                               {file, "--modified", "--shift", "1x"},
                                               {file, "--modified", "--from-name", "abc"},
                                               {"--modified", "2020-01-01"},
                                               {file, "--undo", file},
                                               {file, "--modified", "2020-01-01", "--wrong"}};
  for (const auto& arguments : unusable) {
    EXPECT_EQ(RunFileTimes(arguments).status, 2) << arguments.back();
  }
  EXPECT_EQ(RunFileTimes({file + "x", "--modified", "2020-01-01"}).status, 3);
  EXPECT_EQ(RunFileTimes({"--undo", file}).status, 3);
}

TEST(RelativeCoordinatesCommand, TakesFamilyAndOrigin) {
  const auto run = [](std::string_view script, std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), "relative-coordinates");
    return RunBatchOn(script, arguments);
  };
  EXPECT_EQ(run("Click, 10, 20\n", {"--origin", "-5,10"}).output, "Click, 15, 10\r\n");
  EXPECT_EQ(run("10,20\n11,22\n", {"--from-first"}).output, "0,0\r\n1,2\r\n");
  EXPECT_EQ(run("Click, 10, 20\n", {"--from-first", "--dialect", "q"}).output, "Click, 10, 20\r\n");
  const BatchResult left = run("MoveTo 1,2\r\nMoveTo x,2", {"--from-previous", "--dialect", "q"});
  EXPECT_EQ(left.status, 0);
  EXPECT_EQ(left.errors, "scrivanta-batch: line 2 left as it is: MoveTo x,2\n");
  for (const std::vector<std::string>& arguments : {std::vector<std::string>{},
                                                    {"--origin", "1"},
                                                    {"--origin", "1,b"},
                                                    {"--from-first", "--from-previous"},
                                                    {"--from-first", "--dialect", "basic"}}) {
    EXPECT_EQ(run("1,2", arguments).status, 2);
  }
}

TEST(ListInputCommand, TellsStepsOrTheFault) {
  const auto run = [](std::string_view script) { return RunBatchOn(script, {"list-input", "--encoding", "utf-8"}); };
  EXPECT_EQ(run("循环 2\n单击 1 2\n结束").output, "1\t重复2次：\r\n2\t　　单击左键 (1, 2)\r\n");
  const BatchResult bad = run("等待 1\n点击");
  EXPECT_EQ(bad.status, 3);
  EXPECT_EQ(bad.errors, "scrivanta-batch: line 2 is no action: 点击\n");
  EXPECT_EQ(bad.output, "");
}

}  // namespace
}  // namespace scrivanta::testing
