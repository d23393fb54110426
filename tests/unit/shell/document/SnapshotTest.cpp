// A snapshot as a file, when it is due, and the folders that instances keep it in.
#include <algorithm>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "shell/document/RecoveryPlace.h"
#include "shell/document/Snapshot.h"
#include "shell/document/SnapshotSchedule.h"
#include "shell/document/SnapshotWriter.h"
#include "support/TemporaryFolder.h"
#include "text/Bytes.h"

namespace scrivanta {
namespace {

using namespace std::chrono_literals;
using testing::TemporaryFolder;

Snapshot Example(std::u16string text) {
  return {.path = u"/文件 夹/原稿=\n.txt",
          .format = {.encoding = DocumentEncoding::kUtf16Be, .lineEnds = DocumentLineEnds::kLf, .endsInHalfUnit = true},
          .stamp = FileStamp{.size = 12, .modified = 1'700'000'000'123'456'789},
          .selection = {{3}, 4},
          .taken = u"2026-03-09 08:05:09",
          .text = std::move(text),
          .rtf = std::nullopt};
}

void ExpectWrittenAndRead(const Snapshot& snapshot, const std::filesystem::path& target) {
  SnapshotWriter writer(target, snapshot);
  while (!writer.WriteNext()) {
  }
  const std::optional<Snapshot> read = ReadSnapshot(ReadWholeFile(target));
  ASSERT_TRUE(read);
  EXPECT_TRUE(*read == snapshot);
}

TEST(SnapshotTest, ComesBackAsItWas) {
  const TemporaryFolder folder;
  const std::filesystem::path target = folder.path() / "snapshot";
  // Any units, and what looks like the mark before a body.
  const std::u16string odd =
      u"\r\n[Text]\r\n[RichText]\r\n\xD800\xDC80\0x\xFEFF"
      "汉💩";
  std::u16string large;
  for (int i = 0; i < 1'500'000; ++i) {
    large += static_cast<char16_t>(i);
  }
  for (const std::u16string& text : {std::u16string(), odd, std::u16string(1, u'\0'), large}) {
    ExpectWrittenAndRead(Example(text), target);
  }

  Snapshot rich = Example(u"");
  rich.rtf = "{\\rtf1 \r\n[Text]\r\n}";
  rich.path.clear();
  rich.stamp.reset();
  rich.format = {.isBinary = true, .exceedsCodePage = true};
  ExpectWrittenAndRead(rich, target);
}

TEST(SnapshotTest, TheOldOneStandsUntilTheNewOneIsWhole) {
  const TemporaryFolder folder;
  const std::filesystem::path target = folder.path() / "snapshot";
  ExpectWrittenAndRead(Example(u"旧"), target);
  const std::string old = ReadWholeFile(target);
  {
    SnapshotWriter writer(target, Example(std::u16string(3'000'000, u'新')));
    EXPECT_FALSE(writer.WriteNext());
    EXPECT_EQ(ReadWholeFile(target), old);
  }
  EXPECT_EQ(ReadWholeFile(target), old);
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 1);
}

TEST(SnapshotTest, OtherFilesAreNone) {
  for (const char* bytes : {"", "\r\n[Text]\r\nabc", "[Scrivanta.Snapshot]\r\nPath = a", "no\r\n[RichText]\r\n{}"}) {
    EXPECT_FALSE(ReadSnapshot(bytes)) << bytes;
  }
}

TEST(SnapshotScheduleTest, WaitsForAPauseButNotForLong) {
  SnapshotSchedule schedule;
  const SnapshotSchedule::Time start{};
  EXPECT_FALSE(schedule.IsDue(start + 1h));

  schedule.NoteChange(start);
  EXPECT_FALSE(schedule.IsDue(start + 4999ms));
  EXPECT_TRUE(schedule.IsDue(start + 5s));
  // Typing without a pause.
  for (auto at = start; at < start + 8s; at += 100ms) {
    schedule.NoteChange(at);
    EXPECT_FALSE(schedule.IsDue(at));
  }
  schedule.NoteChange(start + 8s);
  EXPECT_TRUE(schedule.IsDue(start + 8s));

  schedule.NoteTaken();
  EXPECT_FALSE(schedule.IsPending());
  EXPECT_FALSE(schedule.IsDue(start + 1h));
}

std::size_t CountEntries(const std::filesystem::path& folder) {
  return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(folder), {}));
}

TEST(RecoveryPlaceTest, OnlyTheDeadLeaveSomethingBehind) {
  const TemporaryFolder folder;
  const std::filesystem::path root = folder.path() / "data" / "recovery";
  EXPECT_TRUE(RecoveryPlace::TakeLeftBehind(root).empty());

  std::filesystem::path dead;
  {
    const RecoveryPlace place = RecoveryPlace::Make(root);
    ExpectWrittenAndRead(Example(u"留下的"), place.SnapshotPath());
    FileSink(place.SnapshotPath().parent_path() / "scrivanta-half.tmp").Write("half");
    dead = place.SnapshotPath();
    EXPECT_TRUE(RecoveryPlace::TakeLeftBehind(root).empty()) << "while it lives";
  }
  RecoveryPlace alive = RecoveryPlace::Make(root);
  ExpectWrittenAndRead(Example(u"活着的"), alive.SnapshotPath());
  {
    const std::vector<RecoveryPlace> found = RecoveryPlace::TakeLeftBehind(root);
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found.front().SnapshotPath(), dead);
    EXPECT_EQ(found.front().Read()->text, u"留下的");
    EXPECT_EQ(CountEntries(dead.parent_path()), 2U) << "the snapshot and the mark that it is taken";
    EXPECT_TRUE(RecoveryPlace::TakeLeftBehind(root).empty()) << "taken by one already";
  }
  EXPECT_EQ(RecoveryPlace::TakeLeftBehind(root).size(), 1U) << "not refused";
  RecoveryPlace::TakeLeftBehind(root).front().RemoveSnapshot();
  EXPECT_EQ(CountEntries(root), 1U) << "nothing is left of it";
  {
    const RecoveryPlace last = std::move(alive);
    last.RemoveSnapshot();
  }
  EXPECT_FALSE(std::filesystem::exists(root));
}

}  // namespace
}  // namespace scrivanta
